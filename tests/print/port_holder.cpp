// Holds a serial port open from another process, as another program on the
// till would: opens the port number given, says "open" or "failed" on its
// output, and keeps the port until its input ends.
#include <QCoreApplication>
#include <cstdio>

#include "print/qt_mscomm.h"
#include "store/failure.h"

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    if (argc < 2) return 2;
    QtMSComm port;
    try {
        port.setCommPort(std::atoi(argv[1]));
        port.setPortOpen(true);
    } catch (const Failure&) {
        std::puts("failed");
        return 1;
    }
    std::puts("open");
    std::fflush(stdout);
    while (std::getchar() != EOF) {
    }
    return 0;
}
