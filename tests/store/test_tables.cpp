// The key and value table, the switch table and the ticket line file.
#include <QElapsedTimer>
#include <QTest>
#include <QtEndian>

#include "store/param_table.h"
#include "store/record_store.h"
#include "store/switch_table.h"
#include "store/ticket_lines.h"
#include "support/golden.h"
#include "support/scratch_dir.h"

namespace {
const QDateTime now(QDate(2026, 11, 16), QTime(9, 5, 7));
qint32 intAt(const QByteArray& b, int offset) {
    return qFromLittleEndian<qint32>(b.constData() + offset);
}
QByteArray entry(const QByteArray& key, const QByteArray& value, qint32 r1 = 0, qint32 r2 = 0) {
    QByteArray r(144, ' ');
    r.replace(0, 106, value.leftJustified(106, ' '));
    qToLittleEndian<qint32>(r1, r.data() + 106);
    qToLittleEndian<qint32>(0, r.data() + 110);
    qToLittleEndian<qint32>(r2, r.data() + 114);
    r.replace(118, 25, key.leftJustified(25, ' '));
    return r;
}
QByteArray head(qint32 count) {
    QByteArray r(144, '\0');
    qToLittleEndian<qint32>(count, r.data() + 110);
    return r;
}
}  // namespace

class TablesTest : public QObject {
    Q_OBJECT
  private slots:
    void paramReadOfEmptyTable() {
        ScratchDir dir;
        RecordStore store;
        QCOMPARE(lit_param(store, "NUM_POSTE"), QString());
        QCOMPARE(ScratchDir::read("WFICP_IA.WDO").size(), 0);
        QVERIFY(!store.isOpen(25));  // closed around each operation
    }

    void paramWritesAndReplaces() {
        ScratchDir dir;
        RecordStore store;
        ecrit_param(store, "IMP_ETIQ_DEF", "Zebra");
        QByteArray bytes = ScratchDir::read("WFICP_IA.WDO");
        QCOMPARE(bytes.size(), 288);
        QCOMPARE(intAt(bytes, 110), 1);
        QCOMPARE(bytes.mid(144, 106).trimmed(), QByteArray("Zebra"));
        QCOMPARE(bytes.mid(144 + 118, 25), QByteArray("IMP_ETIQ_DEF").leftJustified(25, ' '));
        QCOMPARE(intAt(bytes, 144 + 106) | intAt(bytes, 144 + 110) | intAt(bytes, 144 + 114), 0);

        ecrit_param(store, "NUM_POSTE", "3");
        ecrit_param(store, "IMP_ETIQ_DEF", " ");  // replaced in place, count kept
        bytes = ScratchDir::read("WFICP_IA.WDO");
        QCOMPARE(bytes.size(), 432);
        QCOMPARE(intAt(bytes, 110), 2);
        QCOMPARE(lit_param(store, "IMP_ETIQ_DEF"), QString());
        QCOMPARE(lit_param(store, "NUM_POSTE"), QStringLiteral("3"));
        QCOMPARE(lit_param(store, "num_poste"), QString());  // keys keep their case
    }

    void paramKeepsTheSalesProgramsEntries() {
        ScratchDir dir;
        ScratchDir::write("WFICP_IA.WDO", head(3) + entry("IMP_FORM_A4", "HP", 7, 9) +
                                              entry("nvgInt55", "c:\\browser.exe") +
                                              entry("IMP_CUIS_AUT", "Kitchen"));
        RecordStore store;
        ecrit_param(store, "IMP_FORM_A4", "Laser");
        const QByteArray bytes = ScratchDir::read("WFICP_IA.WDO");
        QCOMPARE(bytes.mid(144, 144), entry("IMP_FORM_A4", "Laser", 7, 9));  // integers kept
        QCOMPARE(bytes.mid(288),
                 entry("nvgInt55", "c:\\browser.exe") + entry("IMP_CUIS_AUT", "Kitchen"));
    }

    void paramKeyOfThirtyCharactersMatchesOnTwentyFive() {
        ScratchDir dir;
        RecordStore store;
        ecrit_param(store, "ABCDEFGHIJKLMNOPQRSTUVWXY_one", "1");
        ecrit_param(store, "ABCDEFGHIJKLMNOPQRSTUVWXY_two", "2");
        QCOMPARE(ScratchDir::read("WFICP_IA.WDO").size(), 288);
        QCOMPARE(lit_param(store, "ABCDEFGHIJKLMNOPQRSTUVWXY"), QStringLiteral("2"));
        ecrit_param(store, "NUM_POSTE", QString(120, QLatin1Char('9')));  // cut to 106
        QCOMPARE(lit_param(store, "NUM_POSTE").size(), 106);
    }

    // The head's count is followed as written, entries missing from the file
    // reading as blank; only an impossible count reads as the entries present.
    void paramCount_data() {
        QTest::addColumn<qint32>("count");
        QTest::addColumn<qint32>("countAfter");
        QTest::addColumn<int>("newEntry");  // record of the key written
        QTest::newRow("one too high after a break") << 2 << 3 << 4;
        QTest::newRow("ten with one entry") << 10 << 11 << 12;
        QTest::newRow("negative") << -1 << 2 << 3;
        QTest::newRow("two billion") << 2000000000 << 2 << 3;
        QTest::newRow("above 65535") << 65536 << 2 << 3;
    }
    void paramCount() {
        QFETCH(qint32, count);
        QFETCH(qint32, countAfter);
        QFETCH(int, newEntry);
        ScratchDir dir;
        ScratchDir::write("WFICP_IA.WDO", head(count) + entry("NUM_POSTE", "4"));
        RecordStore store;
        QElapsedTimer clock;
        clock.start();
        QCOMPARE(lit_param(store, "NUM_POSTE"), QStringLiteral("4"));
        QCOMPARE(lit_param(store, "IMP_DEF_FACT"), QString());
        ecrit_param(store, "IMP_DEF_FACT", "PDF");
        QVERIFY(clock.elapsed() < 500);
        const QByteArray bytes = ScratchDir::read("WFICP_IA.WDO");
        QCOMPARE(intAt(bytes, 110), countAfter);
        QCOMPARE(bytes.size(), 144 * newEntry);
        QCOMPARE(bytes.mid(144 * (newEntry - 1)), entry("IMP_DEF_FACT", "PDF"));
        QCOMPARE(lit_param(store, "IMP_DEF_FACT"), QStringLiteral("PDF"));
    }

    void switchTable() {
        ScratchDir dir;
        RecordStore store;
        QByteArray switchs = lit_switch(store, now);
        const QByteArray file = ScratchDir::read("switch63.wdo");
        QCOMPARE(file.size(), 1024);
        QCOMPARE(file.left(24), QByteArray("#INIT#11-16-202609:05:07"));
        QCOMPARE(switchs.size(), 1000);
        QCOMPARE(val_switch(switchs, 44), qint16(1));
        QCOMPARE(switchs.mid(88, 2), QByteArray("1 "));
        for (int n : {0, 10, 43, 45, 160, 499}) QCOMPARE(val_switch(switchs, n), qint16(0));

        pose_switch(switchs, 44, 0);
        QCOMPARE(switchs.mid(88, 2), QByteArray("0 "));
        pose_switch(switchs, 160, 100);
        QCOMPARE(switchs.mid(320, 2), QByteArray("10"));
        pose_switch(switchs, 55, -1);
        QCOMPARE(val_switch(switchs, 55), qint16(-1));
        QCOMPARE(switchs.size(), 1000);
        QCOMPARE(ScratchDir::read("switch63.wdo"), file);  // memory only until written

        ecrit_switch(store, now.addDays(3), switchs);
        const QByteArray written = ScratchDir::read("switch63.wdo");
        QCOMPARE(written.left(24), file.left(24));  // head kept
        QCOMPARE(written.mid(24, 1000), switchs);
        QCOMPARE(lit_switch(store, now), switchs);
        QVERIFY(!store.isOpen(163));
    }

    // The initial file, byte for byte: its marker line, 12 lines of 9-point
    // Arial down the page, blank lines after.
    void ticketLineFile() {
        ScratchDir dir;
        RecordStore store;
        ouvre_fe1032(store, now.date());
        const QByteArray bytes = ScratchDir::read("W_FE1032.WDO");
        const QString mismatch = goldenMismatch("store", "W_FE1032.WDO", bytes);
        QVERIFY2(mismatch.isEmpty(), qPrintable(mismatch));

        // A date without the marker at position 1 sets every line back.
        QByteArray damaged = bytes;
        damaged.replace(0, 7, " #INIT#");
        damaged.replace(256, 5, "Hello");
        ScratchDir::write("W_FE1032.WDO", damaged);
        ouvre_fe1032(store, now.date());
        QCOMPARE(ScratchDir::read("W_FE1032.WDO"), bytes);
    }
};

QTEST_GUILESS_MAIN(TablesTest)
#include "test_tables.moc"
