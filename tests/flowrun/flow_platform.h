#pragma once
// The flow runner's platform: real serial ports (the scenario's ports are
// pseudo-terminals reached through a private Wine dosdevices folder), a fixed
// clock, USB families that record what they are sent, and a browser that is
// only noted.
#include <QTemporaryDir>
#include <map>
#include <memory>

#include "flow_log.h"
#include "pty_capture.h"
#include "scenario.h"
#include "shell/context.h"

class RecordingUsb;

class FlowPlatform : public Platform {
  public:
    FlowPlatform(const Scenario& scenario, FlowLog& log);
    ~FlowPlatform() override;
    std::unique_ptr<MSComm> newPort() override;
    UsbLibraries& usb() override;
    QDateTime now() const override { return clock_; }
    bool openBrowser(const QString& browserPath, const QString& page) override;

    // "COM1: 1b 40 ..." for each captured port, "T1: ..." for each USB family.
    QStringList wireReport();
    // Removes the private Wine folder (the runner leaves with _exit).
    void removeFiles() { winePrefix_.remove(); }

  private:
    QDateTime clock_;
    FlowLog& log_;
    QTemporaryDir winePrefix_;
    std::map<int, std::unique_ptr<PtyCapture>> ports_;
    std::unique_ptr<RecordingUsb> usb_;
};
