#pragma once
// The platform of a test run: a fixed clock, real serial ports whose numbers
// chosen by the test lead to captured pseudo-terminals through a private Wine
// dosdevices folder (every other number leads to a folder, which no port can
// open, so no port of this machine is touched), USB families that note every
// write, no browser, and recording printers (none unless the test adds
// them: never the machine's own).
#include <QDateTime>
#include <QStringList>
#include <map>
#include <memory>
#include <set>

#include "shell/context.h"
#include "support/pty_pair.h"
#include "support/recording_printers.h"
#include "support/wine_ports.h"

class NotingFamily : public UsbFamily {
  public:
    bool reachable = false;  // open() answers 1, else 0
    QList<QByteArray> writes;
    qint16 open() override { return reachable ? 1 : 0; }
    qint32 write(const QByteArray& bytes) override {
        writes << bytes;
        return qint32(bytes.size());
    }
    void close() override {}
};

class NotingUsb : public UsbLibraries {
  public:
    NotingFamily t1, t3;
    UsbFamily& family(qint16 famille_usb) override { return famille_usb == 0 ? t1 : t3; }
};

class TestPlatform : public Platform {
  public:
    explicit TestPlatform(const std::set<int>& ptyPorts = {});
    std::unique_ptr<MSComm> newPort() override;
    UsbLibraries& usb() override { return usbFamilies; }
    QDateTime now() const override { return clock; }
    bool openBrowser(const QString&, const QString&) override { return false; }
    // A test's pauses take no time.
    void pause(std::chrono::milliseconds) override {}
    SystemPrinters& printers() override { return *printerSystem; }

    // What the far end of port n received so far, taken away.
    QByteArray received(int port) { return ptys.at(port)->received(); }
    void removeFiles() { wine_.remove(); }

    QDateTime clock{QDate(2026, 11, 16), QTime(10, 20, 30)};
    NotingUsb usbFamilies;
    RecordingPrinters systemPrinters;
    SystemPrinters* printerSystem = &systemPrinters;  // or the real ones
    std::map<int, std::unique_ptr<PtyPair>> ptys;

  private:
    WinePorts wine_;
};
