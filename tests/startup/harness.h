#pragma once
// The start-up run in this process: a fixed clock, an interaction that notes
// the screens asked for (none exists here), and a menuimp whose load is the
// start-up. The end of the program must not happen in these tests.
#include <QStringList>
#include <QtGlobal>

#include "print/qt_mscomm.h"
#include "shell/context.h"
#include "startup/menuimp.h"
#include "store/failure.h"

class FixedPlatform : public Platform {
  public:
    std::unique_ptr<MSComm> newPort() override { return std::make_unique<QtMSComm>(); }
    UsbLibraries& usb() override { throw Failure(QStringLiteral("no USB here")); }
    QDateTime now() const override { return clock; }
    bool openBrowser(const QString&, const QString&) override { return false; }
    QDateTime clock{QDate(2026, 11, 16), QTime(10, 20, 30)};
};

class NotingInteraction : public Interaction {
  public:
    void showDialog() override { screens << QStringLiteral("form97"); }
    void messageBox(const QString& text) override { screens << QStringLiteral("box ") + text; }
    void bulle(const QString&, const QString&) override {}
    bool showScreen(const QString& name, bool modal) override {
        screens << name + (modal ? QStringLiteral(" modal") : QString());
        return exists;
    }
    void letEventsRun() override {}
    [[noreturn]] void endProgram() override { qFatal("the program ended"); }
    [[noreturn]] void fatal(const QString& what) override { qFatal("fatal: %s", qPrintable(what)); }
    QStringList screens;
    bool exists = true;
};

struct Startup {
    FixedPlatform platform;
    NotingInteraction ui;
    Context ctx{platform, ui};
    menuimp menu{ctx};
    void run() { menu.load(); }
    QString label14() const { return menu.findChild<QLabel*>(QStringLiteral("Label14"))->text(); }
};
