#pragma once
// The system's printers through Qt PrintSupport: the list in the system's
// order (CUPS here, the spooler on Windows) and documents painted on a
// QPrinter at the printer's own resolution.
#include "shell/system_printers.h"

class AppPrinters : public SystemPrinters {
  public:
    QStringList names() override;
    // Platform file: the profile's "Device" entry on Windows, the CUPS
    // default elsewhere.
    QString defaultEntry() override;
    std::unique_ptr<PrinterSurface> open(const QString& deviceName) override;
};
