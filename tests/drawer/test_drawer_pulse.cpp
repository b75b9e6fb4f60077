// The pulse as it is read from the saved records, with no range rule: the
// strict reading of the code groups (the sales program's own number reading
// would take "2x7" for 2) and the wait as a 32-bit float of seconds. The
// screen, the wire and the order of the pause are the flows' business.
#include <QtTest>

#include "drawer/drawer_pulse.h"
#include "store/failure.h"

namespace {

QByteArray padded(const char* text) {
    return QByteArray(text).leftJustified(20, ' ');
}

DrawerPulse compose(const char* wait, const char* opening) {
    return composeDrawerPulse([&](const RecordRef& r) {
        if (r.number == rec::drawerPort.number) return padded("0:15");
        if (r.number == rec::drawerPulseMs.number) return padded(wait);
        if (r.number == rec::drawerClose.number) return padded(opening);
        if (r.number == rec::drawerOpen.number) return padded("");
        return padded(" 2400,e,7,2 ");
    });
}

}  // namespace

class DrawerPulseTest : public QObject {
    Q_OBJECT
  private slots:
    void groupsAndWait_data() {
        QTest::addColumn<QByteArray>("wait");
        QTest::addColumn<QByteArray>("opening");
        QTest::addColumn<qint64>("ms");
        QTest::addColumn<QByteArray>("bytes");  // "fails": no pulse at all
        QTest::newRow("blank groups are skipped")
            << QByteArray("500") << QByteArray("27    112") << qint64(500) << QByteArray("\x1bp");
        QTest::newRow("blanks around, a decimal part")
            << QByteArray("50") << QByteArray(" 272.5255") << qint64(50)
            << QByteArray("\x1b\x02\xff");
        QTest::newRow("no number")
            << QByteArray("500") << QByteArray("2x7") << qint64(0) << QByteArray("fails");
        QTest::newRow("no byte") << QByteArray("500") << QByteArray("27 300") << qint64(0)
                                 << QByteArray("fails");
        QTest::newRow("negative") << QByteArray("500") << QByteArray("-1 ") << qint64(0)
                                  << QByteArray("fails");
        QTest::newRow("a float of seconds")
            << QByteArray("123") << QByteArray("0") << qint64(123) << QByteArray(1, '\0');
        QTest::newRow("below zero, no wait")
            << QByteArray("-20") << QByteArray("") << qint64(0) << QByteArray();
        QTest::newRow("beyond a float")
            << QByteArray("1e300") << QByteArray("") << qint64(0) << QByteArray("fails");
    }
    void groupsAndWait() {
        QFETCH(QByteArray, wait);
        QFETCH(QByteArray, opening);
        QFETCH(qint64, ms);
        QFETCH(QByteArray, bytes);
        if (bytes == "fails") {
            QVERIFY_THROWS_EXCEPTION(Failure, compose(wait.constData(), opening.constData()));
            return;
        }
        const DrawerPulse pulse = compose(wait.constData(), opening.constData());
        QCOMPARE(pulse.opening, bytes);
        QCOMPARE(qint64(pulse.wait.count()), ms);
        QCOMPARE(pulse.port, 15);  // no range rule when firing
        QCOMPARE(pulse.closing, QByteArray());
        QCOMPARE(pulse.settings, QStringLiteral("2400,e,7,2"));
    }
};

QTEST_GUILESS_MAIN(DrawerPulseTest)
#include "test_drawer_pulse.moc"
