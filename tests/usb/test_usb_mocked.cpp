// The two USB libraries beside the program, on printers faked by umockdev:
// the standard test ticket through the real channel, every byte that
// reached the device compared; a printer that is absent (the open answers 0,
// one bubble per send); a printer unplugged in the middle of a ticket.
#include <QtTest>

#include "mock_printer.h"
#include "print/channels.h"
#include "print/qt_usb_libraries.h"
#include "print/standard_ticket.h"
#include "support/golden.h"

namespace {

using Kind = MockPrinter::Kind;

// The printer each family talks to: usblp's node for T1 (famille_usb 0),
// a printer-class USB device through libusb for T3 (famille_usb 2).
Kind deviceOf(int famille) {
    return famille == 0 ? Kind::KernelPrinter : Kind::UsbDevice;
}

struct Sent {
    QByteArray bytes;
    int opens = 0;
    int bubbles = 0;
};

Sent sendTicket(int famille, Kind device, qsizetype unplugAfter = -1) {
    MockPrinter printer(device, unplugAfter);
    QtUsbLibraries libraries(QStringLiteral(KALVO_USB_DIR));
    int bubbles = 0;
    UsbChannel usb(libraries, [&] { ++bubbles; });
    usb.send(composeTestTicket(standardTicketFields()), 2, qint16(famille), [] {});
    return {printer.received(), printer.opens(), bubbles};
}

}  // namespace

class TestUsbMocked : public QObject {
    Q_OBJECT
  private:
    Job ticket_ = composeTestTicket(standardTicketFields());
    QByteArray golden_ = golden("print", "ticket_standard.bin");

  private Q_SLOTS:
    void initTestCase() {
        QVERIFY2(qEnvironmentVariable("LD_PRELOAD").contains("umockdev"),
                 "run under umockdev-wrapper");
        QVERIFY(!golden_.isEmpty());
    }

    void families_data() {
        QTest::addColumn<int>("famille");
        QTest::newRow("T1 /dev/usb/lp0") << 0;
        QTest::newRow("T3 libusb bulk OUT") << 2;
    }

    // One open per send, the whole ticket byte for byte, no bubble.
    void wholeTicket_data() { families_data(); }
    void wholeTicket() {
        QFETCH(int, famille);
        const Sent sent = sendTicket(famille, deviceOf(famille));
        QCOMPARE(sent.bytes.toHex(' '), golden_.toHex(' '));
        QCOMPARE(sent.opens, int(ticket_.writes.size()));
        QCOMPARE(sent.bubbles, 0);
    }

    void absent_data() { families_data(); }
    void absent() {
        QFETCH(int, famille);
        const Sent sent = sendTicket(famille, Kind::None);
        QCOMPARE(sent.bytes, QByteArray());
        QCOMPARE(sent.bubbles, int(ticket_.writes.size()));
    }

    // Unplugged at byte 100, inside the ninth send: the bytes before it
    // arrive, that send ends quietly, and every later send finds no printer.
    void unpluggedMidTicket_data() { families_data(); }
    void unpluggedMidTicket() {
        QFETCH(int, famille);
        const qsizetype cut = 100;
        int sendsAfter = 0;
        qsizetype start = 0;
        for (const Write& w : ticket_.writes) {
            if (start > cut || (start == cut && !w.bytes.isEmpty())) ++sendsAfter;
            start += w.bytes.size();
        }
        const Sent sent = sendTicket(famille, deviceOf(famille), cut);
        QCOMPARE(sent.bytes.toHex(' '), golden_.left(cut).toHex(' '));
        QCOMPARE(sent.bubbles, sendsAfter);
        QCOMPARE(sent.opens, int(ticket_.writes.size()) - sendsAfter);
    }
};

QTEST_GUILESS_MAIN(TestUsbMocked)
#include "test_usb_mocked.moc"
