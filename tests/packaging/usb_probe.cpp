// Loads the two USB libraries the way the program does, from the folder the
// program lives in, and opens each: "T1 0" means the library and its three
// functions were found and the open answered 0 (no printer here).
#include <QCoreApplication>
#include <cstdio>

#include "print/qt_usb_libraries.h"
#include "store/failure.h"

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: usb_probe PROGRAM_FOLDER\n");
        return 2;
    }
    QtUsbLibraries libraries(QString::fromLocal8Bit(argv[1]));
    int status = 0;
    for (const auto& [name, family] : {std::pair{"T1", 0}, std::pair{"T3", 1}}) {
        try {
            std::printf("%s %d\n", name, libraries.family(qint16(family)).open());
        } catch (const Failure& f) {
            std::printf("%s %s\n", name, f.what());
            status = 1;
        }
    }
    return status;
}
