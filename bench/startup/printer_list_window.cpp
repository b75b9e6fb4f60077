// The floor of a start that lists the system's printers: the least a Qt
// Widgets program does to show one window of the tool's design size with the
// printers' names, in the system's order, in a list.
#include <QApplication>
#include <QListWidget>
#include <QPrinterInfo>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QListWidget window;
    window.addItems(QPrinterInfo::availablePrinterNames());
    window.resize(1024, 738);
    window.show();
    return QApplication::exec();
}
