// The small rules everything else reads and writes through: numbers read from
// text, fixed strings, the Windows-1252 border.
#include <QTest>

#include "store/codec.h"
#include "store/failure.h"
#include "store/fixed_string.h"
#include "store/numeric.h"

class RulesTest : public QObject {
    Q_OBJECT
  private slots:
    void numericReading_data() {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<double>("value");
        QTest::newRow("blank") << QByteArray("   ") << 0.0;
        QTest::newRow("empty") << QByteArray() << 0.0;
        QTest::newRow("letters") << QByteArray("abc") << 0.0;
        QTest::newRow("padded") << QByteArray("  12   ") << 12.0;
        QTest::newRow("blank between digits") << QByteArray("1 2") << 12.0;
        QTest::newRow("stops at letter") << QByteArray("12abc") << 12.0;
        QTest::newRow("comma is no decimal point") << QByteArray("2,5") << 2.0;
        QTest::newRow("point") << QByteArray("1.5") << 1.5;
        QTest::newRow("negative") << QByteArray("-3") << -3.0;
        QTest::newRow("sign alone") << QByteArray("-") << 0.0;
        QTest::newRow("leading zeros") << QByteArray("027") << 27.0;
        QTest::newRow("colon after field") << QByteArray("029:086") << 29.0;
        QTest::newRow("exponent") << QByteArray("1e2") << 100.0;
        QTest::newRow("e without digits") << QByteArray("12e") << 12.0;
        QTest::newRow("nul stops") << QByteArray(
                                          "7\0"
                                          "8",
                                          3)
                                   << 7.0;
        QTest::newRow("second point stops") << QByteArray("1.2.3") << 1.2;
    }
    void numericReading() {
        QFETCH(QByteArray, text);
        QFETCH(double, value);
        QCOMPARE(numericValue(text), value);
    }

    void byteConversion() {
        QCOMPARE(int(toByte(numericValue("255"))), 255);
        QCOMPARE(int(toByte(2.5)), 2);  // ties to even
        QCOMPARE(int(toByte(3.5)), 4);
        QVERIFY_THROWS_EXCEPTION(Failure, toByte(256));
        QVERIFY_THROWS_EXCEPTION(Failure, toByte(-1));
        QVERIFY_THROWS_EXCEPTION(Failure, toInt16(40000));
        QCOMPARE(toInt16(-32768), qint16(-32768));
    }

    void fixedStrings() {
        FixedString s(6, "abcdefgh");
        QCOMPARE(s.bytes(), QByteArray("abcdef"));  // cut on assignment
        s.assign("ab");
        QCOMPARE(s.bytes(), QByteArray("ab    "));  // padded
        s.replace(5, "XYZ");                        // in place, never longer
        QCOMPARE(s.bytes(), QByteArray("ab  XY"));
        s.replace(2, "");
        QCOMPARE(s.bytes(), QByteArray("ab  XY"));
        s.replace(7, "Q");  // beyond the end: nothing
        QCOMPARE(s.length(), 6);
        QCOMPARE(s.mid(5, 5), QByteArray("XY"));
    }

    void windows1252Border() {
        QCOMPARE(codec::toBytes(QStringLiteral("é€°ç")), QByteArray("\xE9\x80\xB0\xE7"));
        QCOMPARE(codec::fromBytes("\xE9t\xE9"), QStringLiteral("été"));
        // Bytes with no character of their own survive a round trip.
        const QByteArray odd("\x81\x8D\x8F\x90\x9D", 5);
        QCOMPARE(codec::toBytes(codec::fromBytes(odd)), odd);
        // A text box shows a never-written record as empty.
        QCOMPARE(codec::boxText(QByteArray(20, '\0')), QString());
        QCOMPARE(codec::boxText(QByteArray("27 \0\0", 5)), QStringLiteral("27 "));
    }
};

QTEST_GUILESS_MAIN(RulesTest)
#include "test_rules.moc"
