// Writes the picture of the main menu after a first start in an empty
// directory: startup_screenshots <folder>, offscreen.
#include <QApplication>
#include <QTest>

#include "shell/fonts.h"
#include "startup/menuimp.h"
#include "support/test_run.h"

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    installFonts();
    const QString folder =
        QDir(argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral(".")).absolutePath();
    QDir().mkpath(folder);
    TestRun run({}, TestRun::NoFile);
    menuimp menu(run.ctx);
    menu.load();
    menu.show();
    (void)QTest::qWaitForWindowExposed(&menu);
    QCoreApplication::processEvents();
    const QString file = QDir(folder).filePath(QStringLiteral("menuimp.png"));
    const bool ok = menu.grab().save(file);
    qInfo("%s %s", ok ? "wrote" : "could not write", qPrintable(file));
    return ok ? 0 : 1;
}
