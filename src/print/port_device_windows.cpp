#include <windows.h>

#include "print/port_device.h"
#include "store/failure.h"

// Qt adds the device namespace prefix that COM10 and above need.
QString portDevice(int number) {
    return QStringLiteral("COM%1").arg(number);
}

void drainDevice(qintptr handle) {
    if (!::FlushFileBuffers(reinterpret_cast<HANDLE>(handle))) {
        throw Failure(QStringLiteral("Erreur de port"));
    }
}
