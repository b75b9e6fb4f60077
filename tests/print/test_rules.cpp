// Code strings to bytes, in the general form and in the paper cut's, and the
// accent translation of both channels. (How the records hold the codes and
// the drawer's codes are the expert screen's flows.)
#include <QTest>

#include "print/accents.h"
#include "print/code_string.h"
#include "store/codec.h"
#include "store/failure.h"

namespace {
QByteArray bytes(std::initializer_list<int> values) {
    QByteArray out;
    for (int v : values) out.append(char(v));
    return out;
}
}  // namespace

class TestRules : public QObject {
    Q_OBJECT
  private slots:
    void generalForm_data() {
        QTest::addColumn<QStringList>("fields");
        QTest::addColumn<QByteArray>("expected");
        QTest::addColumn<bool>("fails");
        QTest::newRow("standard init")
            << QStringList{"027", "064", "", "", ""} << bytes({27, 64}) << false;
        QTest::newRow("all blank") << QStringList{"", " ", "  ", "", ""} << QByteArray() << false;
        QTest::newRow("000 is a byte") << QStringList{"000", ""} << bytes({0}) << false;
        QTest::newRow("blank in the middle")
            << QStringList{"27", "", "64"} << bytes({27, 64}) << false;
        QTest::newRow("digits around a blank") << QStringList{"1 2"} << bytes({12}) << false;
        QTest::newRow("letters give 0") << QStringList{"abc"} << bytes({0}) << false;
        QTest::newRow("255") << QStringList{"255"} << bytes({255}) << false;
        QTest::newRow("256") << QStringList{"27", "256"} << QByteArray() << true;
        QTest::newRow("999") << QStringList{"999"} << QByteArray() << true;
        QTest::newRow("negative") << QStringList{"-1"} << QByteArray() << true;
    }
    void generalForm() {
        QFETCH(QStringList, fields);
        QFETCH(QByteArray, expected);
        QFETCH(bool, fails);
        if (fails) {
            QVERIFY_THROWS_EXCEPTION(Failure, codeBytes(fields));
        } else {
            QCOMPARE(codeBytes(fields), expected);
        }
    }

    void cutForm_data() {
        QTest::addColumn<QStringList>("fields");
        QTest::addColumn<QByteArray>("expected");  // one write per byte
        QTest::newRow("standard") << QStringList{"029", "086", "048", "", ""}
                                  << bytes({29, 86, 48, 0});
        QTest::newRow("only blanks still cut 0") << QStringList{"", "", "", "", ""} << bytes({0});
        QTest::newRow("blank then 7 is a piece")
            << QStringList{" 7", "", "", "", ""} << bytes({7, 0});
        QTest::newRow("letters give 0") << QStringList{"abc", "", "", "", ""} << bytes({0, 0});
        QTest::newRow("long field cut to 3")
            << QStringList{"0291", "", "", "", "1"} << bytes({29, 1, 0});
    }
    void cutForm() {
        QFETCH(QStringList, fields);
        QFETCH(QByteArray, expected);
        const QList<QByteArray> writes = cutBytes(fields);
        QCOMPARE(writes.size(), expected.size());
        for (qsizetype i = 0; i < writes.size(); ++i) QCOMPARE(writes[i], expected.mid(i, 1));
    }

    void cutFormFails() { QVERIFY_THROWS_EXCEPTION(Failure, cutBytes({"029", "999", "", "", ""})); }

    // Both channels translate alike; any mode but 1 and 2 leaves Windows-1252.
    void accents_data() {
        QTest::addColumn<int>("mode");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QByteArray>("sent");
        const QString all = QString::fromUtf8("éèêïîçà°€ûùôö");
        QTest::newRow("mode 1, every letter") << 1 << all << QByteArray("eeeiicaoEuuoo");
        QTest::newRow("mode 2, every letter")
            << 2 << all << bytes({130, 138, 136, 139, 140, 135, 133, 248, 238, 150, 151, 147, 148});
        for (int mode : {0, 3, 7, -1})
            QTest::addRow("mode %d", mode) << mode << all << codec::toBytes(all);
        QTest::newRow("e diaeresis stays")
            << 1 << QString::fromUtf8("été ë") << QByteArray("ete \xEB");
        const QString others = QString::fromUtf8("ÉÈÇâœ");
        QTest::newRow("capitals and others pass, mode 1") << 1 << others << codec::toBytes(others);
        QTest::newRow("capitals and others pass, mode 2") << 2 << others << codec::toBytes(others);
        QTest::newRow("empty") << 2 << QString() << QByteArray();
        QTest::newRow("control bytes") << 2 << QString("\x1b\x45\x01") << bytes({27, 69, 1});
    }
    void accents() {
        QFETCH(int, mode);
        QFETCH(QString, text);
        QFETCH(QByteArray, sent);
        QByteArray viaSerial = codec::toBytes(text);
        QByteArray viaUsb = viaSerial;
        traduit_accents(viaSerial, mode);
        traduit_accents_usb(viaUsb, mode);
        QCOMPARE(viaSerial, sent);
        QCOMPARE(viaUsb, sent);
    }
};

QTEST_APPLESS_MAIN(TestRules)
#include "test_rules.moc"
