// The virtual printer's reading of the tool's own bytes, as golden text
// dumps and a few reference pictures, and the rules that no fixture reaches.
#include <QtTest>

#include "accent_advice.h"
#include "decode.h"
#include "escpos/decoder.h"
#include "escpos/dump.h"
#include "escpos/render.h"
#include "fixtures.h"
#include "support/golden.h"

namespace {

// Share of pixels whose grey level differs by more than a quarter.
double difference(const QImage& a, const QImage& b) {
    if (a.size() != b.size()) return 1.0;
    const QImage ga = a.convertToFormat(QImage::Format_Grayscale8);
    const QImage gb = b.convertToFormat(QImage::Format_Grayscale8);
    qint64 differing = 0;
    for (int y = 0; y < ga.height(); ++y) {
        const uchar* la = ga.constScanLine(y);
        const uchar* lb = gb.constScanLine(y);
        for (int x = 0; x < ga.width(); ++x) differing += std::abs(la[x] - lb[x]) > 64;
    }
    return double(differing) / (double(ga.width()) * ga.height());
}

}  // namespace

class EscPos : public QObject {
    Q_OBJECT
  private slots:
    void toolBytes_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<bool>("accents");
        for (const Fixture& f : wireFixtures())
            QTest::newRow(qPrintable(f.name)) << f.bytes << f.accents;
    }
    // The dump of every fixture is golden; the same bytes in pieces of one,
    // seven and 64 bytes, as a serial line delivers them, give the same
    // document.
    void toolBytes() {
        QFETCH(QByteArray, bytes);
        QFETCH(bool, accents);
        const escpos::Document doc = decode(bytes);
        QString text = escpos::dump(doc);
        if (accents) text += u'\n' + adviseAccents(doc.sheets.front()).text();
        const QString name = QString::fromLatin1(QTest::currentDataTag()) + QStringLiteral(".txt");
        const QString mismatch = goldenMismatch(QStringLiteral("escpos"), name, text.toUtf8());
        QVERIFY2(mismatch.isEmpty(), qPrintable(mismatch));
        for (const qsizetype piece : {1, 7, 64})
            QCOMPARE(escpos::dump(decode(bytes, piece)), escpos::dump(doc));
    }

    void pictures_data() {
        QTest::addColumn<QByteArray>("bytes");
        for (const Fixture& f : wireFixtures())
            if (QStringList{"ticket_t16_mode0", "ticket_t16_mode2", "cheque5", "ean_serie",
                            "graphique_usb"}
                    .contains(f.name))
                QTest::newRow(qPrintable(f.name)) << f.bytes;
    }
    // The first sheet drawn, against a picture that was looked at; fonts may
    // differ a little from one machine to another.
    void pictures() {
        QFETCH(QByteArray, bytes);
        const QImage image = escpos::renderSheet(decode(bytes).sheets.front());
        const QString name = QString::fromLatin1(QTest::currentDataTag()) + QStringLiteral(".png");
        // The README's pictures, only when asked for.
        if (const QString folder = qEnvironmentVariable("KALVO_SCREENSHOTS"); !folder.isEmpty())
            image.save(QDir(folder).filePath(QStringLiteral("vprinter_") + name), "PNG");
        const QByteArray reference = golden(QStringLiteral("escpos"), name);
        if (reference.isEmpty()) {
            QByteArray png;
            QBuffer buffer(&png);
            buffer.open(QIODevice::WriteOnly);
            image.save(&buffer, "PNG");
            QFAIL(qPrintable(goldenMismatch(QStringLiteral("escpos"), name, png)));
        }
        const double share = difference(image, QImage::fromData(reference, "PNG"));
        QVERIFY2(share < 0.01,
                 qPrintable(QStringLiteral("%1 % of the pixels differ").arg(share * 100)));
    }

    // A table in which no mode prints the accents: the advice says what to change.
    void adviceWithoutAGoodMode() {
        const escpos::Document doc =
            decode(QByteArray("\x1bt\x11"
                              "Accents :  \x82\n"));
        const AccentAdvice advice = adviseAccents(doc.sheets.front());
        QCOMPARE(advice.table, 17);
        QVERIFY2(advice.conclusion.startsWith(QStringLiteral("Conseil : aucun mode")),
                 qPrintable(advice.text()));
    }

    void commands_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("line");  // a line the dump must hold
        QTest::newRow("PC850") << QByteArray("\x1bt\x02\x82\x8a\n")
                               << "ligne +30 @0 [PC850] \"éè\"";
        QTest::newRow("PC858 euro")
            << QByteArray("\x1bt\x13\xd5\n") << "ligne +30 @0 [PC858] \"€\"";
        QTest::newRow("France") << QByteArray("\x1bR\x01@{}\n") << "ligne +30 @0 [France] \"àéè\"";
        QTest::newRow("unknown ESC keeps the rest")
            << QByteArray("\x1b~AB\n") << "ligne +30 @0 {1B 7E : commande inconnue} \"AB\"";
        QTest::newRow("double size and centre") << QByteArray(
                                                       "\x1b"
                                                       "a1\x1d!\x11"
                                                       "AB\n")
                                                << "ligne +48 @264 [taille 2x2] \"AB\"";
        QTest::newRow("partial cut with feed")
            << QByteArray("\x1dVB\x14") << "coupe partielle après 20 points d'avance (1D 56 42 14)";
        QTest::newRow("real-time pulse")
            << QByteArray("\x10\x14\x01\x01\x03")
            << "tiroir : impulsion broche 5, 300 ms marche, 300 ms arrêt (10 14 01 01 03)";
        QTest::newRow("wrapped at the paper's width") << QByteArray(50, 'x') + '\n'
                                                      << "ligne +30 @0 \"xx\"";
        QTest::newRow("bar code cut short") << QByteArray(
                                                   "\x1dk\x02"
                                                   "123")
                                            << "ligne +30 @0 {1D 6B 02 31 32 33 : commande "
                                               "incomplète : il manque des octets à la fin}";
        QTest::newRow("page never printed") << QByteArray("\x1bLAB")
                                            << "page @0,0 576x1662 points (unités 1/203 x 1/203 "
                                               "po), jamais imprimée : il manque FF";
        QTest::newRow("image beyond the paper")
            << QByteArray("\x1b*\x00\x2c\x01", 5) + QByteArray(300, '\xff') + '\n'
            << "ligne +30 @0 [image ESC * 0 : 288 colonnes de 8 points, 2x3 → 576x24]";
    }
    void commands() {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, line);
        const QString text = escpos::dump(decode(bytes));
        QVERIFY2(text.split(u'\n').contains(line), qPrintable(text));
    }
};

QTEST_MAIN(EscPos)
#include "test_escpos.moc"
