// The serial port on real pseudo-terminals: what the far end receives and
// sees of the settings, and every failure a user can cause, with the port
// left as the action left it. (The tickets byte for byte on the wire, and a
// ticket cut by a failing code, are the flows'.)
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QTest>

#include "print/channels.h"
#include "print/port_device.h"
#include "print/qt_mscomm.h"
#include "store/failure.h"
#include "support/pty_pair.h"
#include "support/wine_ports.h"

namespace {
constexpr int printerPort = 3;
}  // namespace

class TestSerial : public QObject {
    Q_OBJECT
    std::unique_ptr<PtyPair> pty_;
    std::unique_ptr<WinePorts> ports_;

    void openPrinterPort(QtMSComm& port) {
        port.setCommPort(printerPort);
        port.setPortOpen(true);
    }

  private slots:
    void init() {
        pty_ = std::make_unique<PtyPair>();
        QVERIFY(pty_->ok());
        ports_ = std::make_unique<WinePorts>();
        QVERIFY(ports_->link(printerPort, pty_->slavePath()));
    }
    void cleanup() {
        ports_.reset();
        pty_.reset();
    }

    void closeDrainsEverything() {
        // Far more than the kernel takes at once: the rest waits in Qt's
        // buffer, and the close must not drop it.
        QByteArray big(256 * 1024, '\0');
        for (qsizetype i = 0; i < big.size(); ++i) big[i] = char(i * 7);
        QtMSComm port;
        openPrinterPort(port);
        port.output(big);
        port.setPortOpen(false);
        QCOMPARE(pty_->received(), big);
    }

    void receivedBytesReachTheEvent() {
        QtMSComm port;
        QByteArray seen;
        port.setOnReceive([&seen](const QByteArray& received) { seen += received; });
        openPrinterPort(port);
        QCOMPARE(::write(pty_->masterFd(), "READY", 5), ssize_t(5));
        QTRY_COMPARE_WITH_TIMEOUT(seen, QByteArray("READY"), 2000);
        port.setPortOpen(false);
    }

    void envoiSerieKeepsTheTranslation() {
        QtMSComm port;
        openPrinterPort(port);
        QByteArray text("\xF4 \xE0 \x80");
        envoi_serie(port, text, 1);
        QCOMPARE(text, QByteArray("o a E"));
        port.setPortOpen(false);
        QCOMPARE(pty_->received(), QByteArray("o a E"));
    }

    void settings_data() {
        QTest::addColumn<QString>("settings");
        QTest::addColumn<QString>("verdict");  // "yes", "no", or "device": the device decides
        QTest::addColumn<QList<int>>("seen");  // speed, size, PARENB|PARODD, two stop bits
        const auto row = [](const char* text, const char* verdict, QList<int> seen) {
            QTest::addRow("%s '%s'", verdict, text) << QString(text) << QString(verdict) << seen;
        };
        row("9600,n,8,1", "yes", {B9600, CS8, 0, 0});
        row("19200,N,8,2", "yes", {B19200, CS8, 0, 1});
        row("115200,n,8,1", "yes", {B115200, CS8, 0, 0});
        row("2400,N,8,1", "yes", {B2400, CS8, 0, 0});
        row("4800,e,7,2", "device", {B4800, CS7, PARENB, 1});
        for (const char* refused :
             {"9600,n,,1", "", "9600,n,8", "9600,n,8,1,", " 9600,n,8,1", "9600,x,8,1", "0,n,8,1",
              "-9600,n,8,1", "96a0,n,8,1", "9600.5,n,8,1", "9600,n,9,1", "9600,n,4,1", "9600,n,8,3",
              "9600,n,8,0"})
            row(refused, "no", {});
    }
    // Each parity letter, in either case, is its own parity: mark and space
    // differ from odd and even only there, and a pseudo-terminal may not
    // show them.
    void parityLetters_data() {
        QTest::addColumn<QString>("settings");
        QTest::addColumn<int>("parity");
        const std::pair<const char*, QSerialPort::Parity> rows[] = {
            {"9600,n,8,1", QSerialPort::NoParity},    {"9600,E,7,1", QSerialPort::EvenParity},
            {"9600,o,7,1", QSerialPort::OddParity},   {"9600,m,7,1", QSerialPort::MarkParity},
            {"9600,M,7,1", QSerialPort::MarkParity},  {"9600,s,7,1", QSerialPort::SpaceParity},
            {"9600,S,7,1", QSerialPort::SpaceParity},
        };
        for (const auto& [text, parity] : rows)
            QTest::addRow("%s", text) << QString(text) << int(parity);
    }
    void parityLetters() {
        QFETCH(QString, settings);
        QFETCH(int, parity);
        QCOMPARE(int(parseSerialSettings(settings).parity), parity);
    }

    // Settings given to the open port, as the screens do. A refused text
    // (by the rule, or by the device: this machine's pseudo-terminals may take
    // no parity) fails at that step, sends nothing and leaves the port open,
    // so the next open on it fails; an accepted one is what the far end sees,
    // raw (no line feed turned into CR LF).
    void settings() {
        QFETCH(QString, settings);
        QFETCH(QString, verdict);
        QFETCH(QList<int>, seen);
        QtMSComm port;
        openPrinterPort(port);
        const termios before = pty_->slaveTermios();
        bool refused = false;
        try {
            port.setSettings(settings);
        } catch (const Failure&) {
            refused = true;
        }
        const termios t = pty_->slaveTermios();
        if (verdict != "device") QCOMPARE(refused, verdict == "no");
        if (refused) {
            QVERIFY(port.portOpen());
            QVERIFY_THROWS_EXCEPTION(Failure, port.setPortOpen(true));
            QtMSComm other;
            other.setCommPort(printerPort);
            QVERIFY_THROWS_EXCEPTION(Failure, other.setPortOpen(true));
            if (verdict == "no") QCOMPARE(t.c_cflag, before.c_cflag);
            port.setPortOpen(false);
            QCOMPARE(pty_->received(50), QByteArray());
            return;
        }
        const QList<int> actual{int(cfgetospeed(&t)), int(t.c_cflag & CSIZE),
                                int(t.c_cflag & (PARENB | PARODD)), int(bool(t.c_cflag & CSTOPB))};
        QCOMPARE(actual, seen);
        QCOMPARE(t.c_oflag & OPOST, tcflag_t(0));
        QCOMPARE(port.settings(), settings);
        port.setPortOpen(false);
    }

    void settingsOnAClosedPortWaitForTheOpen() {
        QtMSComm port;
        port.setSettings("19200,n,8,2");
        QVERIFY_THROWS_EXCEPTION(Failure, port.setSettings("19200,n,,2"));
        QCOMPARE(port.settings(), QString("19200,n,8,2"));
        openPrinterPort(port);
        const termios t = pty_->slaveTermios();
        QCOMPARE(cfgetospeed(&t), speed_t(B19200));
        QVERIFY(t.c_cflag & CSTOPB);
        port.setPortOpen(false);
    }

    // The sales program beside holds the port: the open fails, and works
    // again once the port is free.
    void portHeldByAnotherProcess() {
        QProcess holder;
        holder.start(QStringLiteral(KALVO_PORT_HOLDER), {QString::number(printerPort)});
        QVERIFY(holder.waitForReadyRead(5000));
        QCOMPARE(holder.readAll().trimmed(), QByteArray("open"));
        QtMSComm port;
        port.setCommPort(printerPort);
        QVERIFY_THROWS_EXCEPTION(Failure, port.setPortOpen(true));
        QVERIFY(!port.portOpen());
        holder.closeWriteChannel();
        QVERIFY(holder.waitForFinished(5000));
        QCOMPARE(pty_->received(50), QByteArray());
        openPrinterPort(port);
        port.setPortOpen(false);
    }

    void portRules() {
        QtMSComm port;
        QVERIFY_THROWS_EXCEPTION(Failure, port.setCommPort(0));  // no port selected
        QVERIFY_THROWS_EXCEPTION(Failure, port.output("x"));     // closed
        openPrinterPort(port);
        QVERIFY_THROWS_EXCEPTION(Failure, port.setCommPort(4));
        QCOMPARE(port.commPort(), printerPort);
        port.output(QByteArray());  // an empty text sends nothing and is no failure
        port.setPortOpen(false);
        port.setPortOpen(false);  // closing a closed port is nothing
        QCOMPARE(pty_->received(50), QByteArray());
    }

    void absentPortFailsFast_data() {
        QTest::addColumn<int>("number");
        QTest::addColumn<QString>("target");
        QTest::newRow("link to nowhere") << 7 << "/nonexistent/ttyUSB9";
        QTest::newRow("no link, no ttyS") << 12 << "";
    }
    void absentPortFailsFast() {
        QFETCH(int, number);
        QFETCH(QString, target);
        if (!target.isEmpty()) QVERIFY(ports_->link(number, target));
        if (target.isEmpty() && QFile::exists(portDevice(number)))
            QSKIP("this machine has the device");
        QtMSComm port;
        port.setCommPort(number);
        QElapsedTimer clock;
        clock.start();
        QVERIFY_THROWS_EXCEPTION(Failure, port.setPortOpen(true));
        QVERIFY2(clock.elapsed() < 50, qPrintable(QString::number(clock.elapsed())));
        QVERIFY(!port.portOpen());
    }

    void portNumbersToDevices() {
        QCOMPARE(portDevice(printerPort), pty_->slavePath());
        QCOMPARE(portDevice(5), QString("/dev/ttyS4"));
        QVERIFY(ports_->link(6, "/nonexistent/device"));
        QCOMPARE(portDevice(6), ports_->linkPath(6));
        // Without WINEPREFIX the prefix is ~/.wine.
        const QByteArray prefix = qgetenv("WINEPREFIX");
        const QByteArray home = qgetenv("HOME");
        qunsetenv("WINEPREFIX");
        qputenv("HOME", prefix);
        QDir(prefix).mkpath(".wine/dosdevices");
        QFile::link(pty_->slavePath(), QString::fromLocal8Bit(prefix) + "/.wine/dosdevices/com2");
        const QString device = portDevice(2);
        qputenv("HOME", home);
        qputenv("WINEPREFIX", prefix);
        QCOMPARE(device, pty_->slavePath());
    }
};

QTEST_GUILESS_MAIN(TestSerial)
#include "test_serial.moc"
