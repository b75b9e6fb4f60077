// The real program in a fresh directory, offscreen: it makes its files and
// then waits on its first screen, until it is killed. And its real platform
// where a part is missing.
#include <QDateTime>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include "app/app_platform.h"

namespace {
QByteArray readAll(const QString& path) {
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}
qint64 sizeOf(const QString& path) {
    return QFileInfo(path).size();
}
}  // namespace

class SmokeTest : public QObject {
    Q_OBJECT
  private slots:
    void firstStartOfTheRealProgram() {
        QTemporaryDir dir;
        const QString program = qEnvironmentVariable("KALVO_BINARY_DIR") + "/bin/kalvo-periph";
        QVERIFY2(QFile::exists(program), qPrintable(program));
        QProcess tool;
        tool.setWorkingDirectory(dir.path());
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert("QT_QPA_PLATFORM", "offscreen");
        tool.setProcessEnvironment(env);
        const QDate before = QDate::currentDate();
        tool.start(program, {});
        QVERIFY(tool.waitForStarted());

        // The theme's last colour record is the last write of the start-up.
        const QString sales = dir.filePath("w_cai020.wdo");
        QTRY_COMPARE_WITH_TIMEOUT(sizeOf(sales), 2047 * 20, 30000);
        QTest::qWait(300);
        QCOMPARE(tool.state(), QProcess::Running);  // waiting on its screen
        tool.kill();
        tool.waitForFinished();
        const QDate after = QDate::currentDate();

        QCOMPARE(QDir(dir.path()).entryList(QDir::Files, QDir::Name),
                 (QStringList{"WFICH142.WDO", "WFICP_IA.WDO", "switch63.wdo", "w_cai020.wdo"}));
        // Its own clock's date in the markers (what the files hold is the
        // first_start flow's business).
        const QByteArray date = readAll(dir.filePath("WFICH142.WDO")).mid(6, 10);
        QVERIFY(date == before.toString("MM-dd-yyyy").toLatin1() ||
                date == after.toString("MM-dd-yyyy").toLatin1());
        const QByteArray switches = readAll(dir.filePath("switch63.wdo"));
        QVERIFY(switches.startsWith("#INIT#" + date));
        QVERIFY(QTime::fromString(QString::fromLatin1(switches.mid(16, 8)), "HH:mm:ss").isValid());
    }

    // The vendor's page on a machine without any browser: nothing starts and
    // the call comes back at once (the screen goes on).
    void noBrowser() {
        AppPlatform platform;
        const QByteArray path = qgetenv("PATH");
        qputenv("PATH", "/nonexistent");
        QElapsedTimer clock;
        clock.start();
        platform.openBrowser(QStringLiteral("iexplore.exe"),
                             QStringLiteral("https://www.kalvo.fr"));
        qputenv("PATH", path);
        QVERIFY(clock.elapsed() < 5000);
    }
};

QTEST_MAIN(SmokeTest)
#include "test_smoke.moc"
