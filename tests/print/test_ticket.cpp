// The test tickets as compositions: which writes, in which order, which of
// them are translated, and where a failure stops them.
#include "print/test_ticket.h"

#include <QTest>

#include "standard_ticket.h"

namespace {

using How = Write::How;

QByteArray bytes(std::initializer_list<int> values) {
    QByteArray out;
    for (int v : values) out.append(char(v));
    return out;
}

}  // namespace

class TestTicket : public QObject {
    Q_OBJECT
  private slots:
    void standardTicketWrites() {
        const Job job = composeTestTicket(standardTicketFields());
        QVERIFY(!job.failed);
        // 3 initialisations, 7 lines, 5 feed lines, 4 cut bytes, the closing blank line.
        QCOMPARE(job.writes.size(), size_t(3 + 7 + 5 + 4 + 1));
        const QList<How> hows{How::Direct,     How::Direct,    How::Direct,     How::Translated,
                              How::Direct,     How::Direct,    How::Translated, How::Translated,
                              How::Translated, How::Translated};
        for (int i = 0; i < hows.size(); ++i) QCOMPARE(job.writes[size_t(i)].how, hows[i]);
        QCOMPARE(job.writes[2].bytes, QByteArray());  // initialisation 3 is sent even empty
        for (size_t i = 10; i < 15; ++i) {
            QCOMPARE(job.writes[i].bytes, QByteArray(" \n"));
            QVERIFY(job.writes[i].letEventsRunAfter);
        }
        for (size_t i = 0; i < 10; ++i) QVERIFY(!job.writes[i].letEventsRunAfter);
        QCOMPARE(job.writes[15].bytes, bytes({29}));
        QCOMPARE(job.writes[18].bytes, bytes({0}));
        QCOMPARE(job.writes[19].bytes, QByteArray(" \n"));
    }

    void marginAndFeed_data() {
        QTest::addColumn<QString>("margin");
        QTest::addColumn<QString>("feed");
        QTest::addColumn<QByteArray>("ruleLine");
        QTest::addColumn<int>("feedLines");
        const QByteArray rule = QByteArray(32, '-') + '\n';
        QTest::newRow("zero") << "0"
                              << "0" << rule << 0;
        QTest::newRow("empty") << ""
                               << "" << rule << 0;
        QTest::newRow("letters") << "abc"
                                 << "x" << rule << 0;
        QTest::newRow("leading number") << " 2x"
                                        << "3 lines"
                                        << "  " + rule << 3;
        QTest::newRow("halves to even") << "2.5"
                                        << "2.5"
                                        << "  " + rule << 2;
        QTest::newRow("negative feed") << "1"
                                       << "-3"
                                       << " " + rule << 0;
    }
    void marginAndFeed() {
        QFETCH(QString, margin);
        QFETCH(QString, feed);
        QFETCH(QByteArray, ruleLine);
        QFETCH(int, feedLines);
        TicketFields f = standardTicketFields();
        f.margin = margin;
        f.feed = feed;
        f.cutWanted = false;
        const Job job = composeTestTicket(f);
        QVERIFY(!job.failed);
        QCOMPARE(job.writes[3].bytes, ruleLine);
        QCOMPARE(job.writes.size(), size_t(10 + feedLines));
        QCOMPARE(job.writes.back().bytes, feedLines ? QByteArray(" \n") : ruleLine);
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
        if (fault == "cut") QCOMPARE(job.writes.back().bytes, bytes({29}));
    }

    void noCutWhenUnchecked() {
        TicketFields f = standardTicketFields();
        f.cutWanted = false;
        f.cut[0] = "999";  // never converted
        const Job job = composeTestTicket(f);
        QVERIFY(!job.failed);
        QCOMPARE(job.writes.back().bytes, QByteArray(" \n"));
        QCOMPARE(job.writes.size(), size_t(15));
    }
};

QTEST_APPLESS_MAIN(TestTicket)
#include "test_ticket.moc"
