#pragma once
// A context for the shell's tests: records in a scratch directory, a platform
// whose ports and USB libraries are never reached, and an interaction that
// runs the real prompt dialog and bubble.
#include <QApplication>
#include <QTemporaryDir>
#include <QWidget>
#include <functional>

#include "shell/context.h"

class UnreachedPort : public MSComm {
  public:
    void setCommPort(int number) override { port_ = number; }
    int commPort() const override { return port_; }
    void setPortOpen(bool open) override;
    bool portOpen() const override { return false; }
    void setSettings(const QString& settings) override { settings_ = settings; }
    QString settings() const override { return settings_; }
    void output(QByteArrayView bytes) override;

  private:
    int port_ = 1;
    QString settings_;
};

class TestPlatform : public Platform, public UsbLibraries {
  public:
    std::unique_ptr<MSComm> newPort() override { return std::make_unique<UnreachedPort>(); }
    UsbLibraries& usb() override { return *this; }
    UsbFamily& family(qint16 famille_usb) override;
    QDateTime now() const override;
    bool openBrowser(const QString&, const QString&) override { return false; }
};

class TestInteraction : public Interaction {
  public:
    Context* ctx = nullptr;
    QStringList messages;
    void showDialog() override;
    void messageBox(const QString& text) override { messages << text; }
    void bulle(const QString& texte, const QString& mode) override;
    bool showScreen(const QString&, bool) override { return false; }
    void letEventsRun() override { QCoreApplication::processEvents(); }
    [[noreturn]] void endProgram() override;
    [[noreturn]] void fatal(const QString& what) override;
};

// Works in a scratch directory with w_cai020.wdo open as file 20.
class TestContext {
  public:
    TestContext();
    ~TestContext();
    QString path(const QString& name) const { return dir_.filePath(name); }
    QByteArray record(int number);  // of file 20
    void putRecord(int number, const QByteArray& bytes);

    TestPlatform platform;
    TestInteraction ui;
    Context ctx{platform, ui};

  private:
    QTemporaryDir dir_;
    QString previous_;
};

// The visible top-level widget of that name, or null.
QWidget* visibleWindow(const QString& objectName);
// Runs the action on the top-level widget of that name as soon as it is
// visible (polled from the event loop, as a user would wait for it).
void whenShown(const QString& objectName, QObject* context, std::function<void(QWidget*)> act);
// Images compare equal when their pixels do.
bool samePicture(const QPixmap& a, const QPixmap& b);
