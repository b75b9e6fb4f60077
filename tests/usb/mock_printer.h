#pragma once
// A USB ticket printer faked by umockdev, for a program run under its
// preload library: the kernel's printer device /dev/usb/lp0 (written with
// write()), or a printer-class USB device whose bulk OUT endpoint is reached
// through usbdevfs URBs (libusb). It keeps every byte that reached it and can
// be unplugged after a given number of bytes: the write or URB that crosses
// that point delivers its first part only, everything after fails as on a
// vanished device, and its node is gone for the next open.
#include <QByteArray>
#include <QString>
#include <deque>
#include <mutex>

typedef struct _UMockdevTestbed UMockdevTestbed;
typedef struct _UMockdevIoctlBase UMockdevIoctlBase;
typedef struct _UMockdevIoctlClient UMockdevIoctlClient;
typedef struct _UMockdevIoctlData UMockdevIoctlData;

class MockPrinter {
  public:
    enum class Kind { None, KernelPrinter, UsbDevice };
    MockPrinter(Kind kind, qsizetype unplugAfter = -1);
    ~MockPrinter();
    MockPrinter(const MockPrinter&) = delete;
    MockPrinter& operator=(const MockPrinter&) = delete;

    QByteArray received() const;
    int opens() const;

  private:
    static int onWrite(UMockdevIoctlBase*, UMockdevIoctlClient* client, MockPrinter* self);
    static int onIoctl(UMockdevIoctlBase*, UMockdevIoctlClient* client, MockPrinter* self);
    static void onOpen(UMockdevIoctlBase*, UMockdevIoctlClient*, MockPrinter* self);
    // The bytes of a write or URB that the printer takes; unplugs it when
    // they reach the limit.
    qsizetype take(const char* bytes, qsizetype count);

    UMockdevTestbed* bed_ = nullptr;
    UMockdevIoctlBase* handler_ = nullptr;
    QString node_;
    qsizetype unplugAfter_;
    mutable std::mutex mutex_;
    QByteArray received_;
    int opens_ = 0;
    bool gone_ = false;
    std::deque<UMockdevIoctlData*> done_;  // URBs to reap
};
