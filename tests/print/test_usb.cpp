// The USB channel through the drop-in recording libraries, loaded by name as
// the vendor's are: every send one open, write and close; an unreachable
// printer, a missing library or function gives the bubble once per send and
// nothing else.
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "print/channels.h"
#include "print/qt_usb_libraries.h"
#include "standard_ticket.h"
#include "store/codec.h"
#include "store/failure.h"
#include "support/golden.h"

namespace {

// The calls the recording library saw, one a line: "OpenUsbPort",
// "WriteUSB 3 616263", "OpenUsbPor3 2", ...
QList<QByteArray> calls(const QString& path) {
    QFile file(path);
    QList<QByteArray> lines =
        file.open(QIODevice::ReadOnly) ? file.readAll().split('\n') : QList<QByteArray>();
    lines.removeAll(QByteArray());
    return lines;
}

// The bytes of each open-write-close triple; {"bad"} for a recording of any
// other shape.
QList<QByteArray> sends(const QList<QByteArray>& calls, const QByteArray& open,
                        const QByteArray& write, const QByteArray& close) {
    QList<QByteArray> out;
    for (qsizetype i = 0; i + 2 < calls.size(); i += 3) {
        const QList<QByteArray> w = calls[i + 1].split(' ');
        out << QByteArray::fromHex(w.value(2));
        if (calls[i] != open || w[0] != write || calls[i + 2] != close ||
            out.last().size() != w.value(1).toInt())
            return {"bad"};
    }
    return calls.size() % 3 == 0 ? out : QList<QByteArray>{"bad"};
}

}  // namespace

class TestUsb : public QObject {
    Q_OBJECT
    QTemporaryDir scratch_;
    QString record_;
    int bubbles_ = 0;

    UsbChannel channel(UsbLibraries& libraries) {
        return UsbChannel(libraries, [this] { ++bubbles_; });
    }

    QList<QByteArray> t1Sends() {
        return sends(calls(record_), "OpenUsbPort", "WriteUSB", "CloseUsbPort");
    }

  private slots:
    void init() {
        record_ =
            scratch_.filePath(QStringLiteral("calls-%1.txt").arg(QTest::currentTestFunction()));
        QFile::remove(record_);
        qputenv("KALVO_USB_RECORD", QFile::encodeName(record_));
        qunsetenv("KALVO_USB_OPEN");
        bubbles_ = 0;
    }

    // First of all: once a library is loaded, the system's loader answers
    // its bare name with it for the rest of the process.
    void missingLibraryOrFunction_data() {
        QTest::addColumn<QString>("folder");
        QTest::addColumn<int>("famille");
        QTest::newRow("no library") << QString() << 0;
        QTest::newRow("no T3 library beside a T1") << QString(KALVO_USB_PARTIAL_DIR) << 2;
        QTest::newRow("T1 without its write function") << QString(KALVO_USB_PARTIAL_DIR) << 0;
    }
    void missingLibraryOrFunction() {
        QFETCH(QString, folder);
        QFETCH(int, famille);
        QTemporaryDir empty;
        const QString previous = QDir::currentPath();
        QDir::setCurrent(empty.path());  // nothing in the current directory either
        QtUsbLibraries libraries(folder.isEmpty() ? empty.path() : folder);
        UsbChannel usb = channel(libraries);
        QByteArray text("abc");
        usb.envoi_usb(text, 0, qint16(famille));
        usb.envoi_usb_brut(text, qint16(famille));
        QDir::setCurrent(previous);
        QCOMPARE(bubbles_, 2);
        QCOMPARE(calls(record_).size(), 0);
    }

    void standardTicketThroughT1() {
        const QByteArray expected = golden("print", "ticket_standard.bin");
        QVERIFY2(!expected.isEmpty(), "golden file ticket_standard.bin is missing");
        QtUsbLibraries libraries(KALVO_USB_RECORDER_DIR);
        UsbChannel usb = channel(libraries);
        const Job job = composeTestTicket(standardTicketFields());
        int yields = 0;
        usb.send(job, 2, 0, [&] { ++yields; });
        const QList<QByteArray> sent = t1Sends();
        QCOMPARE(sent.size(), qsizetype(job.writes.size()));
        QCOMPARE(sent.join(), expected);
        QCOMPARE(yields, 5);
        QCOMPARE(bubbles_, 0);
    }

    void familyT3_data() {
        QTest::addColumn<int>("famille");
        QTest::newRow("1") << 1;
        QTest::newRow("2") << 2;
        QTest::newRow("-1") << -1;
    }
    void familyT3() {
        QFETCH(int, famille);
        QtUsbLibraries libraries(KALVO_USB_RECORDER_DIR);
        UsbChannel usb = channel(libraries);
        QByteArray text("\x1b@");
        usb.envoi_usb(text, 2, qint16(famille));
        const QList<QByteArray> sent =
            sends(calls(record_), "OpenUsbPor3 2", "WriteUS3", "CloseUsbPor3");
        QCOMPARE(sent, QList<QByteArray>{"\x1b@"});
    }

    // Every write of a job is translated on USB, the headings too; a raw one
    // never. The bytes go as they are, NUL and empty texts included, and the
    // caller keeps the translated text.
    void bytesAsTheyAre() {
        QtUsbLibraries libraries(KALVO_USB_RECORDER_DIR);
        UsbChannel usb = channel(libraries);
        Job job;
        job.add(codec::toBytes(QString::fromUtf8("Caf\u00e9")), Write::How::Direct);
        job.add(codec::toBytes(QString::fromUtf8("Caf\u00e9")), Write::How::Raw);
        usb.send(job, 1, 0, {});
        QByteArray empty;
        usb.envoi_usb(empty, 2, 0);
        const QByteArray withNul("ab\0cd", 5);
        usb.envoi_usb_brut(withNul, 0);
        QByteArray text("\xE9t\xE9 \xEB");  // "été ë"
        usb.envoi_usb(text, 1, 0);
        QCOMPARE(text, QByteArray("ete \xEB"));  // the caller keeps the translation
        usb.envoi_usb(text, 1, 0);
        QByteArray seven("\xE9\x80");
        usb.envoi_usb(seven, 7, 0);
        const QByteArray brut("\xE9");
        usb.envoi_usb_brut(brut, 0);
        const QList<QByteArray> sent = t1Sends();
        QCOMPARE(sent, (QList<QByteArray>{"Cafe", "Caf\xE9", "", withNul, "ete \xEB", "ete \xEB",
                                          "\xE9\x80", "\xE9"}));
        QCOMPARE(bubbles_, 0);
    }

    void unreachablePrinter_data() {
        QTest::addColumn<QByteArray>("openResult");
        QTest::addColumn<int>("famille");
        QTest::newRow("0") << QByteArray("0") << 0;
        QTest::newRow("2") << QByteArray("2") << 0;
        QTest::newRow("-1") << QByteArray("-1") << 0;
        QTest::newRow("T3 0") << QByteArray("0") << 2;
        QTest::newRow("T3 257, not 1 in 16 bits") << QByteArray("257") << 2;
    }
    void unreachablePrinter() {
        QFETCH(QByteArray, openResult);
        QFETCH(int, famille);
        qputenv("KALVO_USB_OPEN", openResult);
        QtUsbLibraries libraries(KALVO_USB_RECORDER_DIR);
        UsbChannel usb = channel(libraries);
        const Job job = composeTestTicket(standardTicketFields());
        usb.send(job, 2, qint16(famille), {});
        QCOMPARE(bubbles_, int(job.writes.size()));
        const QList<QByteArray> recorded = calls(record_);
        QCOMPARE(recorded.size(), qsizetype(job.writes.size()));
        for (const QByteArray& call : recorded) QVERIFY(call.startsWith("OpenUsbPor"));
    }

    void failedCompositionFailsAfterItsWrites() {
        TicketFields f = standardTicketFields();
        f.margin = "-1";
        const Job job = composeTestTicket(f);
        QtUsbLibraries libraries(KALVO_USB_RECORDER_DIR);
        UsbChannel usb = channel(libraries);
        QVERIFY_THROWS_EXCEPTION(Failure, usb.send(job, 2, 0, {}));
        QCOMPARE(t1Sends().size(), 3);
    }
};

QTEST_GUILESS_MAIN(TestUsb)
#include "test_usb.moc"
