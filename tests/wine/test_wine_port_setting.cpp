// The registry file of a prefix that no Wine runs for, edited in place: the
// value COMn set for the printer's port, then put back byte for byte.
#include <QTemporaryDir>
#include <QtTest>

#include "wine_port_setting.h"

namespace {

const QByteArray header =
    "WINE REGISTRY Version 2\n;; All keys relative to REGISTRY\\\\Machine\n\n"
    "#arch=win64\n\n";
const QByteArray wowPorts = "[Software\\\\Wow6432Node\\\\Wine\\\\Ports] 1795491373\n#link\n\n";

QByteArray read(const QString& path) {
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

void write(const QString& path, const QByteArray& bytes) {
    QFile f(path);
    QVERIFY(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
    f.write(bytes);
}

}  // namespace

class WinePortSettingTest : public QObject {
    Q_OBJECT
  private slots:
    void prefixWithoutRegistryIsLeftAlone() {
        QTemporaryDir prefix;
        WinePortSetting setting(prefix.path(), 1);
        QString warning;
        QVERIFY(setting.set(QStringLiteral("/dev/pts/7"), warning));
        QVERIFY(setting.restore(warning));
        QVERIFY(QDir(prefix.path()).isEmpty());
        QVERIFY(!WinePortSetting::serverRuns(prefix.path()));
    }

    // A prefix that is not there is made so that Wine can start in it, and
    // goes again when Wine did not.
    void missingPrefixIsMadeAndTakenAway() {
        QTemporaryDir parent;
        const QString prefix = parent.filePath(QStringLiteral("prefix"));
        WinePortSetting setting(prefix, 1);
        QString warning;
        QVERIFY(setting.makePrefixIfMissing(warning));
        QCOMPARE(QFileInfo(prefix + QStringLiteral("/dosdevices/c:")).symLinkTarget(),
                 prefix + QStringLiteral("/drive_c"));
        QCOMPARE(QFileInfo(prefix + QStringLiteral("/dosdevices/z:")).symLinkTarget(),
                 QStringLiteral("/"));
        QVERIFY(setting.set(QStringLiteral("/dev/pts/7"), warning));
        QVERIFY(read(prefix + QStringLiteral("/system.reg")).contains("\"COM1\"=\"/dev/pts/7\""));
        QVERIFY(setting.restore(warning));
        QVERIFY(!QFileInfo::exists(prefix));
    }

    // A value that stood there (written in lower case by hand) comes back as
    // it was; the other ports and the 32-bit view's key are not touched.
    void previousValueComesBackVerbatim() {
        QTemporaryDir prefix;
        const QString reg = prefix.filePath(QStringLiteral("system.reg"));
        const QByteArray before = header +
                                  "[Software\\\\Wine\\\\Ports] 1795491373\n#time=1dd7bc4f4aff23a\n"
                                  "\"com1\"=\"/dev/serial/by-id/usb-\\\"x\\\"\"\n"
                                  "\"COM3\"=\"/dev/ttyUSB0\"\n\n" +
                                  wowPorts;
        write(reg, before);
        WinePortSetting setting(prefix.path(), 1);
        QString warning;
        QVERIFY(setting.set(QStringLiteral("/dev/pts/7"), warning));
        const QByteArray during = read(reg);
        QVERIFY(during.contains("#time=1dd7bc4f4aff23a\n\"COM1\"=\"/dev/pts/7\"\n\"COM3\""));
        QVERIFY(!during.contains("by-id"));
        QVERIFY(during.endsWith(wowPorts));
        QVERIFY(setting.restore(warning));
        QCOMPARE(read(reg), before);
    }

    // Without the key, it is added whole; at the end the value goes again.
    void missingKeyIsAdded() {
        QTemporaryDir prefix;
        const QString reg = prefix.filePath(QStringLiteral("system.reg"));
        write(reg, header + wowPorts);
        WinePortSetting setting(prefix.path(), 12);
        QString warning;
        QVERIFY(setting.set(QStringLiteral("/dev/pts/3"), warning));
        const QByteArray during = read(reg);
        const QRegularExpression key(
            QStringLiteral("\n\n\\[Software\\\\\\\\Wine\\\\\\\\Ports\\] "
                           "\\d+\n#time=[0-9a-f]+\n\"COM12\"=\"/dev/pts/3\"\n\n$"));
        QVERIFY2(key.match(QString::fromLatin1(during)).hasMatch(), during.right(120).constData());
        QVERIFY(setting.restore(warning));
        QVERIFY(!read(reg).contains("COM12"));
        QVERIFY(read(reg).startsWith(header + wowPorts));
    }

    // A value that someone else set while the printer ran is his to keep.
    void someoneElsesValueStays() {
        QTemporaryDir prefix;
        const QString reg = prefix.filePath(QStringLiteral("system.reg"));
        write(reg, header + "[Software\\\\Wine\\\\Ports] 1\n\n");
        WinePortSetting setting(prefix.path(), 2);
        QString warning;
        QVERIFY(setting.set(QStringLiteral("/dev/pts/4"), warning));
        write(reg, read(reg).replace("/dev/pts/4", "/dev/ttyUSB1"));
        const QByteArray changed = read(reg);
        QVERIFY(setting.restore(warning));
        QCOMPARE(read(reg), changed);
    }
};

QTEST_GUILESS_MAIN(WinePortSettingTest)
#include "test_wine_port_setting.moc"
