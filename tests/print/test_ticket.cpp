// The test tickets as compositions: which writes, in which order, which of
// them are translated or let events run, and where a failure stops them.
// (Margin, feed and the cutter test on the wire are the expert flows'.)
#include "print/test_ticket.h"

#include <QTest>

#include "standard_ticket.h"
#include "support/golden.h"

class TestTicket : public QObject {
    Q_OBJECT
  private slots:
    // The standard ticket: 3 initialisations (the third sent even empty), 7
    // lines, 5 feed lines that let events run, 4 cut bytes, a closing line.
    void standardTickets_data() {
        QTest::addColumn<bool>("kitchen");
        QTest::newRow("ticket_standard.job") << false;
        QTest::newRow("kitchen_standard.job") << true;
    }
    void standardTickets() {
        QFETCH(bool, kitchen);
        const Job job = kitchen ? composeKitchenTicket(standardKitchenFields())
                                : composeTestTicket(standardTicketFields());
        const QString mismatch = goldenMismatch("print", QTest::currentDataTag(), describeJob(job));
        QVERIFY2(mismatch.isEmpty(), qPrintable(mismatch));
    }

    // A failure keeps the writes composed before it and nothing after it.
    void failures_data() {
        QTest::addColumn<QString>("fault");
        QTest::addColumn<int>("writesBefore");
        QTest::addColumn<int>("kitchenWritesBefore");
        QTest::newRow("999 in initialisation 1") << "init1" << 0 << 0;
        QTest::newRow("999 in initialisation 3") << "init3" << 2 << 2;
        QTest::newRow("negative margin") << "margin-" << 3 << 3;
        QTest::newRow("huge margin") << "margin+" << 3 << 3;
        QTest::newRow("999 in bold on") << "bold" << 6 << 6;
        QTest::newRow("999 in italic off") << "italic" << 7 << 9;
        QTest::newRow("feed beyond 16 bits") << "feed" << 10 << 12;
        QTest::newRow("999 in the second cut field") << "cut" << 16 << 18;
    }
    void failures() {
        QFETCH(QString, fault);
        QFETCH(int, writesBefore);
        QFETCH(int, kitchenWritesBefore);
        TicketFields f = standardTicketFields();
        if (fault == "init1") f.init1[1] = "999";
        if (fault == "init3") f.init3[0] = "999";
        if (fault == "margin-") f.margin = "-1";
        if (fault == "margin+") f.margin = "70000";
        if (fault == "bold") f.boldOn[2] = "999";
        if (fault == "italic") f.italicOff[0] = "999";
        if (fault == "feed") f.feed = "40000";
        if (fault == "cut") f.cut[1] = "999";
        const Job job = composeTestTicket(f);
        QVERIFY(job.failed);
        QCOMPARE(int(job.writes.size()), writesBefore);
        const Job kitchen = composeKitchenTicket(f);
        QVERIFY(kitchen.failed);
        QCOMPARE(int(kitchen.writes.size()), kitchenWritesBefore);
        if (fault == "cut") QCOMPARE(job.writes.back().bytes, QByteArray("\x1d"));
    }
};

QTEST_APPLESS_MAIN(TestTicket)
#include "test_ticket.moc"
