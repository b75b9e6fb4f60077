// The accent translation of both channels, letter by letter. (Codes to bytes,
// how the records hold them and the drawer's codes are the expert flows'.)
#include <QTest>

#include "print/accents.h"
#include "store/codec.h"

namespace {
QByteArray bytes(std::initializer_list<int> values) {
    QByteArray out;
    for (int v : values) out.append(char(v));
    return out;
}
}  // namespace

class TestAccents : public QObject {
    Q_OBJECT
  private slots:
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

QTEST_APPLESS_MAIN(TestAccents)
#include "test_accents.moc"
