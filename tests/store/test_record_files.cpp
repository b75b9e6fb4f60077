// The record layer's behaviour at the edges (beyond the end, closed numbers,
// a second writer) and the files no flow makes yet: a network till's copy of
// the sales program's records, a port's file. (WFICH142.WDO, its marker and
// the kitchen's file are the flows'.)
#include <QTest>

#include "store/failure.h"
#include "store/record_files.h"
#include "store/record_store.h"
#include "store/records.h"
#include "support/scratch_dir.h"

namespace {
const QDate today(2026, 11, 16);
QByteArray blanks(int records) {
    return QByteArray(records * 20, ' ');
}
}  // namespace

class RecordFilesTest : public QObject {
    Q_OBJECT
  private slots:
    void recordLayer() {
        ScratchDir dir;
        RecordStore store;
        QVERIFY_THROWS_EXCEPTION(Failure, store.get(20, 1));  // not open
        store.open(20, "w_cai020.wdo", 20);
        QCOMPARE(store.get(20, 3), QByteArray(20, '\0'));  // beyond the end
        QCOMPARE(store.size(20), 0);                       // ...and no growth
        store.put(20, 3, "abc");
        QCOMPARE(ScratchDir::read("w_cai020.wdo"), QByteArray(40, '\0') + padded("abc"));
        store.put(20, 2, QByteArray(25, 'x'));  // cut to one record, neighbours intact
        QCOMPARE(store.get(20, 3), padded("abc"));
        QCOMPARE(store.get(20, 2), QByteArray(20, 'x'));
        QVERIFY_THROWS_EXCEPTION(Failure, store.put(20, 0, "x"));
        store.close(20);
        QVERIFY_THROWS_EXCEPTION(Failure, store.put(20, 1, "x"));
    }

    void secondWriterSeesEveryPutAndLosesNothing() {
        ScratchDir dir;
        RecordStore store;
        store.open(142, "WFICH142.WDO ", 20);  // the trailing blank is dropped
        QFile other("WFICH142.WDO");
        QVERIFY(other.open(QIODevice::ReadWrite | QIODevice::Unbuffered));
        for (int n = 1; n <= 50; ++n) {
            store.put(142, 2 * n, padded("tool " + QByteArray::number(n)));
            other.seek(qint64(2 * n) * 20);  // record 2n+1
            other.write(padded("other " + QByteArray::number(n)));
            other.seek(qint64(2 * n - 1) * 20);
            QCOMPARE(other.read(20), padded("tool " + QByteArray::number(n)));
            QCOMPARE(store.get(142, 2 * n + 1), padded("other " + QByteArray::number(n)));
        }
        for (int n = 1; n <= 50; ++n)
            QCOMPARE(store.get(142, 2 * n), padded("tool " + QByteArray::number(n)));
    }

    void perifxOnNetworkTillStopsAtItsFirstRead() {
        // At start-up file 20 is not open yet: the copy fails at once and the
        // file keeps its marker and blank records.
        ScratchDir dir;
        RecordStore store;
        QVERIFY_THROWS_EXCEPTION(Failure, ouvre_perifx(store, today));
        const QByteArray bytes = ScratchDir::read("w_perifx.wdo");
        QCOMPARE(bytes.size(), 40000);
        QCOMPARE(bytes.left(20), padded("#INIT#11-16-2026"));
        QCOMPARE(bytes.mid(20), blanks(1999));
        QVERIFY(store.isOpen(120));
    }

    void perifxCopiesRecordsOneToSixteenAndTheDrawer() {
        ScratchDir dir;
        QByteArray sales;
        for (int n = 1; n <= 720; ++n) sales += padded("sales " + QByteArray::number(n));
        ScratchDir::write("w_cai020.wdo", sales);
        RecordStore store;
        store.open(20, "w_cai020.wdo", 20);
        ouvre_perifx(store, today);
        for (int n = 1; n <= 16; ++n)
            QCOMPARE(store.get(120, n), padded("sales " + QByteArray::number(n)));
        QCOMPARE(store.get(120, 17), blanks(1));
        QCOMPARE(store.get(120, 81), blanks(1));  // the listed numbers are not what is copied
        for (int n = 700; n <= 712; ++n)
            QCOMPARE(store.get(120, n), padded("sales " + QByteArray::number(n)));
        QCOMPARE(store.get(120, 713), blanks(1));
        QCOMPARE(ScratchDir::read("w_cai020.wdo"), sales);
    }

    void portFile_data() {
        QTest::addColumn<int>("existingBytes");
        QTest::addColumn<bool>("rebuilt");
        QTest::newRow("missing") << -1 << true;
        QTest::newRow("19 bytes") << 19 << true;
        QTest::newRow("20 bytes of nothing") << 20 << false;
    }
    void portFile() {
        QFETCH(int, existingBytes);
        QFETCH(bool, rebuilt);
        ScratchDir dir;
        if (existingBytes >= 0) ScratchDir::write("Souvprt7.wdo", QByteArray(existingBytes, '\0'));
        RecordStore store;
        ouvre_souvprt(store, 7);
        const QByteArray bytes = ScratchDir::read("Souvprt7.wdo");
        if (rebuilt) {
            QCOMPARE(bytes.size(), 4000);
            QCOMPARE(bytes.left(40), padded("9600,n,8,1") + padded("Imp S\xE9rie : 7"));
            QCOMPARE(bytes.mid(40), blanks(198));
        } else {
            QCOMPARE(bytes, QByteArray(20, '\0'));
        }
    }

    void fileThatCannotBeOpenedFails() {
        // A directory in the file's place cannot be opened, even by root.
        ScratchDir dir;
        QDir().mkdir("WFICH142.WDO");
        RecordStore store;
        QVERIFY_THROWS_EXCEPTION(Failure, ouvre_fich142(store, today));
        QVERIFY(!store.isOpen(142));
    }
};

QTEST_GUILESS_MAIN(RecordFilesTest)
#include "test_record_files.moc"
