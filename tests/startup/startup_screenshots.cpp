// Writes the picture of the main menu after a first start in an empty
// directory: startup_screenshots <folder>, offscreen.
#include <QApplication>
#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include "harness.h"
#include "shell/fonts.h"

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    installFonts();
    const QString folder =
        QDir(argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral(".")).absolutePath();
    QDir().mkpath(folder);
    QTemporaryDir data;
    QDir::setCurrent(data.path());
    Startup s;
    s.run();
    s.menu.show();
    (void)QTest::qWaitForWindowExposed(&s.menu);
    QCoreApplication::processEvents();
    const QString file = QDir(folder).filePath(QStringLiteral("menuimp.png"));
    const bool ok = s.menu.grab().save(file);
    qInfo("%s %s", ok ? "wrote" : "could not write", qPrintable(file));
    return ok ? 0 : 1;
}
