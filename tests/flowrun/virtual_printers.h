#pragma once
// Virtual printers on ports of the flow's Wine prefix: each is the real
// kalvo-vprinter program, started before the first step on its own port
// (it makes the pseudo-terminal and the comN link itself) and ended when the
// report is written, which then shows every ticket it printed.
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>
#include <memory>
#include <vector>

class VirtualPrinters {
  public:
    // Throws std::runtime_error when one does not start.
    explicit VirtualPrinters(const std::vector<int>& ports);
    // Ends them all, then "-- virtual printer COMn" with each ticket's
    // picture size and text.
    QStringList report();

  private:
    struct Printer {
        int port = 0;
        std::unique_ptr<QProcess> process;
        std::unique_ptr<QTemporaryDir> out;
    };
    std::vector<Printer> printers_;
};
