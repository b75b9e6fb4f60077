// A till has one printer and eleven ports with nothing behind them: a link
// to a device that is gone, a folder, a port another program holds. Each of
// them must fail at once, or the scan loses its three-second rhythm.
#include <QFile>
#include <QTimer>
#include <QtTest>

#include "serial/param_serie.h"
#include "support/test_run.h"

class ScanTest : public QObject {
    Q_OBJECT
  private slots:
    void absentPortsFailAtOnce() {
        TestRun run({1, 12});
        const QString dosdevices = qEnvironmentVariable("WINEPREFIX") + "/dosdevices/com%1";
        for (int n = 2; n <= 6; ++n) {
            QFile::remove(dosdevices.arg(n));
            QVERIFY(QFile::link(QStringLiteral("/nonexistent/ttyUSB%1").arg(n), dosdevices.arg(n)));
        }
        auto holder = run.platform.newPort();  // port 12: held by another program
        holder->setCommPort(12);
        holder->setPortOpen(true);

        run.ctx.chaine_travail = QStringLiteral("##12#9600,n,8,1");
        Param_serie screen(run.ctx);
        screen.load();
        screen.show();
        QTest::mouseClick(screen.findChild<QWidget*>("Label11"), Qt::LeftButton);  // port 1
        QVERIFY(!run.platform.received(1).isEmpty());
        qint64 slowest = 0;
        for (int port = 2; port <= 12; ++port) {
            QElapsedTimer clock;
            clock.start();
            QTimerEvent tick(screen.Timer1->timerId());
            QCoreApplication::sendEvent(screen.Timer1, &tick);
            const qint64 ms = clock.elapsed();
            slowest = qMax(slowest, ms);
            QVERIFY2(ms < 50, qPrintable(QStringLiteral("port %1: %2 ms").arg(port).arg(ms)));
            QCOMPARE(screen.port_courant, port);
            QCOMPARE(screen.port_en_erreur, -1);
        }
        QCOMPARE(run.platform.received(12), QByteArray());
        qInfo("slowest absent port: %lld ms", slowest);
    }
};

QTEST_MAIN(ScanTest)
#include "test_scan.moc"
