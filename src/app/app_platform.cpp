#include "app/app_platform.h"

#include <thread>

#include "app/app_printers.h"
#include "print/qt_mscomm.h"
#include "print/qt_usb_libraries.h"

AppPlatform::AppPlatform()
    : usb_(std::make_unique<QtUsbLibraries>()), printers_(std::make_unique<AppPrinters>()) {}

AppPlatform::~AppPlatform() = default;

std::unique_ptr<MSComm> AppPlatform::newPort() {
    return std::make_unique<QtMSComm>();
}

UsbLibraries& AppPlatform::usb() {
    return *usb_;
}

QDateTime AppPlatform::now() const {
    return QDateTime::currentDateTime();
}

void AppPlatform::pause(std::chrono::milliseconds length) {
    std::this_thread::sleep_until(std::chrono::steady_clock::now() + length);
}

SystemPrinters& AppPlatform::printers() {
    return *printers_;
}
