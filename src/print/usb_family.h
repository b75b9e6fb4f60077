#pragma once
// A family of USB ticket printer libraries: open, write bytes, close. Each
// operation may throw Failure (a library or function that cannot be had).
#include <QByteArray>

class UsbFamily {
  public:
    virtual ~UsbFamily() = default;
    virtual qint16 open() = 0;  // exactly 1 means the printer is reachable
    virtual qint32 write(const QByteArray& bytes) = 0;
    virtual void close() = 0;
};

// The two families by the value of famille_usb: 0 the T1 library, any other
// value the T3 library. Loaded at first use, kept to the end of the run.
class UsbLibraries {
  public:
    virtual ~UsbLibraries() = default;
    virtual UsbFamily& family(qint16 famille_usb) = 0;
};
