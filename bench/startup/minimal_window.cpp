// The floor: the least a Qt Widgets program does to show one window of the
// tool's design size.
#include <QApplication>
#include <QLabel>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QLabel window(QStringLiteral("Paramétrage de votre imprimante principale"));
    window.resize(1024, 738);
    window.show();
    return QApplication::exec();
}
