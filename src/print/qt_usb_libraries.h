#pragma once
// The two USB printer families, each a library loaded by name with QLibrary
// at its first open and kept loaded to the end of the run. The library is
// looked for in the program's own folder, then by the system's library
// search, then in the current directory.
#include <QLibrary>
#include <QString>
#include <memory>

#include "print/usb_family.h"

struct UsbFamilyNames {
    const char* library;  // "CommUSB-T1"
    const char* open;
    const char* write;
    const char* close;
    bool openTakesSelector;  // OpenUsbPor3 is called with 2
};

class QtUsbFamily : public UsbFamily {
  public:
    QtUsbFamily(UsbFamilyNames names, QString programFolder);
    ~QtUsbFamily() override;
    // Throws Failure when the library or one of its functions cannot be had.
    qint16 open() override;
    qint32 write(const QByteArray& bytes) override;
    void close() override;

  private:
    struct Functions;
    void load();

    UsbFamilyNames names_;
    QString programFolder_;
    std::unique_ptr<QLibrary> library_;
    std::unique_ptr<Functions> functions_;
};

class QtUsbLibraries : public UsbLibraries {
  public:
    // programFolder stands for the program's own folder; empty means
    // QCoreApplication::applicationDirPath() at the first open (tests point it
    // elsewhere).
    explicit QtUsbLibraries(const QString& programFolder = {});
    UsbFamily& family(qint16 famille_usb) override;

  private:
    QtUsbFamily t1_;
    QtUsbFamily t3_;
};
