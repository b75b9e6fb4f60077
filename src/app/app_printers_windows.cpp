#include <windows.h>

#include "app/app_printers.h"

// The "Device" entry of the "windows" section of the user's profile, as the
// spooler keeps it: "name,driver,port". The call answers the number of
// characters it put in the buffer of 1024; an absent entry gives "".
QString AppPrinters::defaultEntry() {
    char buffer[1024];
    const DWORD length = GetProfileStringA("windows", "Device", "", buffer, sizeof buffer);
    return QString::fromLocal8Bit(buffer, qsizetype(length));
}
