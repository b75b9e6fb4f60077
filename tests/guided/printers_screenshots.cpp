// Writes the pictures of the screens that print on the system's printers,
// on three recording printers: printers_screenshots <folder>, offscreen.
#include <QApplication>
#include <QListWidget>
#include <QTest>

#include "guided/form2.h"
#include "guided/selimp4.h"
#include "labels/etiqqq.h"
#include "shell/fonts.h"
#include "store/param_table.h"
#include "store/record_files.h"
#include "support/test_run.h"

namespace {
bool save(Screen& screen, const QString& folder) {
    screen.show();
    (void)QTest::qWaitForWindowExposed(&screen);
    QCoreApplication::processEvents();
    const QString file = QDir(folder).filePath(screen.objectName() + QStringLiteral(".png"));
    const bool ok = screen.grab().save(file);
    qInfo("%s %s", ok ? "wrote" : "could not write", qPrintable(file));
    screen.hide();
    return ok;
}
}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    installFonts();
    const QString folder =
        QDir(argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral(".")).absolutePath();
    QDir().mkpath(folder);
    TestRun run;
    for (const char* name : {"Bureau A4 - HP LaserJet", "Caisse 80 mm - TM-T20", "Zebra GK420d"})
        run.platform.systemPrinters.add(QString::fromLatin1(name), name[0] == 'C');
    ecrit_param(run.ctx.store, QStringLiteral("IMP_ETIQ_DEF"), QStringLiteral("Zebra GK420d"));
    ouvre_fich142(run.ctx.store, run.ctx.today());
    run.ctx.put(rec::labelPrinterUsed, "1");

    selimp4 standard(run.ctx);
    standard.load();
    standard.combo4->setCurrentRow(1);
    Form2 ticket(run.ctx);
    ticket.load();
    etiqqq labels(run.ctx);
    labels.load();
    return save(standard, folder) && save(ticket, folder) && save(labels, folder) ? 0 : 1;
}
