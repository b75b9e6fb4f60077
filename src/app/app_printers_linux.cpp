#include <QPrinterInfo>

#include "app/app_printers.h"

// The CUPS default destination (lpoptions -d, or the PRINTER and LPDEST
// settings), as CUPS itself tells it to Qt: the name alone.
QString AppPrinters::defaultEntry() {
    return QPrinterInfo::defaultPrinterName();
}
