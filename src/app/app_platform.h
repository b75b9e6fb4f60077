#pragma once
// The real platform: serial ports through Qt, the USB families loaded by
// name, the system clock, the browser started beside the tool, and the
// system's printers.
#include <memory>

#include "shell/context.h"

class AppPlatform : public Platform {
  public:
    AppPlatform();
    ~AppPlatform() override;
    std::unique_ptr<MSComm> newPort() override;
    UsbLibraries& usb() override;
    QDateTime now() const override;
    bool openBrowser(const QString& browserPath, const QString& page) override;
    void pause(std::chrono::milliseconds length) override;
    SystemPrinters& printers() override;

  private:
    std::unique_ptr<UsbLibraries> usb_;
    std::unique_ptr<SystemPrinters> printers_;
};
