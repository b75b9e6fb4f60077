// The virtual printer against bytes nobody here wrote: the picture tickets
// of three npm libraries drawn dot for dot like their source picture; every
// picture command and scaling; every style command row by row; the faults
// those libraries showed (katakana rules, the upside-down line, requests
// that made sheets of their own, markers off the paper).
#include <QtTest>

#include "decode.h"
#include "escpos/decoder.h"
#include "escpos/dump.h"
#include "escpos/render.h"
#include "support/golden.h"

namespace {

QString ticketsDir() {
    return qEnvironmentVariable("KALVO_SOURCE_DIR") + QStringLiteral("/tests/escpos/tickets/");
}

// Printed dots are black; the cut's mark and tags are greys and colours.
bool black(const QImage& image, int x, int y) {
    return qGray(image.pixel(x, y)) < 40;
}

// The smallest rectangle that holds every dark pixel.
QRect inkBox(const QImage& image) {
    QRect box;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (black(image, x, y)) box |= QRect(x, y, 1, 1);
    return box;
}

// A 16 by 16 picture with no symmetry, sent in either form.
bool patternDot(int x, int y) {
    return x == 0 || y == 0 || x == y || (x >= 10 && y < 5) || (x < 4 && y >= 12);
}
QByteArray patternRaster() {
    QByteArray out(32, '\0');
    for (int y = 0; y < 16; ++y)
        for (int x = 0; x < 16; ++x)
            if (patternDot(x, y)) out[y * 2 + x / 8] = char(out[y * 2 + x / 8] | 0x80 >> (x % 8));
    return out;
}
QByteArray patternColumns() {
    QByteArray out(32, '\0');
    for (int x = 0; x < 16; ++x)
        for (int y = 0; y < 16; ++y)
            if (patternDot(x, y)) out[x * 2 + y / 8] = char(out[x * 2 + y / 8] | 0x80 >> (y % 8));
    return out;
}

QByteArray bytes(std::initializer_list<int> values) {
    QByteArray out;
    for (const int v : values) out += char(v);
    return out;
}

// GS ( L with its length.
QByteArray graphics(const QByteArray& parameters) {
    return bytes({0x1d, '(', 'L', int(parameters.size() & 0xFF), int(parameters.size() >> 8)}) +
           parameters;
}

const escpos::Picture* firstPicture(const escpos::Document& doc) {
    for (const escpos::Sheet& s : doc.sheets)
        for (const escpos::Block& b : s.blocks)
            if (const auto* p = std::get_if<escpos::Picture>(&b)) return p;
    return nullptr;
}

}  // namespace

class Pictures : public QObject {
    Q_OBJECT
  private slots:
    void libraries_data() {
        QTest::addColumn<QString>("file");
        for (const char* name : {"pictures_receiptline", "pictures_encoder_raster",
                                 "pictures_encoder_column", "pictures_thermal"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }
    // One ticket, no marker, its dump golden, and the picture drawn dot for
    // dot like the source it was made from.
    void libraries() {
        QFETCH(QString, file);
        QFile in(ticketsDir() + file + QStringLiteral(".bin"));
        QVERIFY2(in.open(QIODevice::ReadOnly), qPrintable(in.fileName()));
        const escpos::Document doc = decode(in.readAll());
        const QString text = escpos::dump(doc);
        const QString mismatch =
            goldenMismatch(QStringLiteral("escpos"), file + QStringLiteral(".txt"), text.toUtf8());
        QVERIFY2(mismatch.isEmpty(), qPrintable(mismatch));
        QCOMPARE(doc.sheets.size(), size_t(1));
        QVERIFY2(!text.contains(u'{'), qPrintable(text));

        const QImage source(ticketsDir() + QStringLiteral("picture.png"));
        QVERIFY(!source.isNull());
        const escpos::Sheet& sheet = doc.sheets.front();
        const QImage whole = escpos::renderSheet(sheet);
        const QImage drawn = whole.copy(sheet.leftMargin, 0, sheet.printableWidth, whole.height());
        const QRect box = inkBox(drawn);
        QCOMPARE(box.size(), source.size());
        for (int y = 0; y < source.height(); ++y)
            for (int x = 0; x < source.width(); ++x)
                if (black(source, x, y) != black(drawn, box.x() + x, box.y() + y))
                    QFAIL(qPrintable(QStringLiteral("dot %1,%2 differs").arg(x).arg(y)));
    }

    void commands_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("scaleX");
        QTest::addColumn<int>("scaleY");
        QTest::addColumn<int>("x");  // from the printable area's left edge
        const QByteArray raster = patternRaster(), columns = patternColumns();
        for (const int m : {0, 1, 2, 3, 48, 49, 50, 51})
            QTest::addRow("GS v 0 %d", m) << bytes({0x1d, 'v', '0', m, 2, 0, 16, 0}) + raster
                                          << (m & 1) + 1 << (m >> 1 & 1) + 1 << 0;
        QTest::newRow("GS v 0 centred")
            << bytes({0x1b, 'a', 1, 0x1d, 'v', '0', 0, 2, 0, 16, 0}) + raster << 1 << 1 << 280;
        QTest::newRow("GS v 0 right, double width")
            << bytes({0x1b, 'a', 2, 0x1d, 'v', '0', 1, 2, 0, 16, 0}) + raster << 2 << 1 << 544;
        QTest::newRow("GS ( L 112 then 50")
            << graphics(bytes({48, 112, 48, 1, 2, 49, 16, 0, 16, 0}) + raster) +
                   graphics(bytes({48, 50}))
            << 1 << 2 << 0;
        QTest::newRow("GS 8 L 113 (columns) then 2")
            << bytes({0x1d, '8', 'L', 42, 0, 0, 0, 48, 113, 48, 2, 1, 49, 16, 0, 16, 0}) + columns +
                   graphics(bytes({48, 2}))
            << 2 << 1 << 0;
        QTest::newRow("GS ( L 67 NV, printed by 69")
            << graphics(bytes({48, 67, 48, 'A', '1', 1, 16, 0, 16, 0, 49}) + raster) +
                   graphics(bytes({48, 69, 'A', '1', 2, 2}))
            << 2 << 2 << 0;
        QTest::newRow("GS ( L 68 NV columns in two colours, printed by 69")
            << graphics(bytes({48, 68, 48, 'A', '2', 2, 16, 0, 16, 0, 49}) + columns + '2' +
                        QByteArray(32, '\0')) +
                   graphics(bytes({48, 69, 'A', '2', 1, 1}))
            << 1 << 1 << 0;
        QTest::newRow("GS ( L 83 downloaded, printed by 85 after ESC @")
            << graphics(bytes({48, 83, 48, 'k', 'c', 1, 16, 0, 16, 0, 49}) + raster) +
                   bytes({0x1b, '@'}) + graphics(bytes({48, 85, 'k', 'c', 1, 2}))
            << 1 << 2 << 0;
        QTest::newRow("GS ( L 84 downloaded columns, printed by 85")
            << graphics(bytes({48, 84, 48, 'k', 'd', 1, 16, 0, 16, 0, 49}) + columns) +
                   graphics(bytes({48, 85, 'k', 'd', 2, 1}))
            << 2 << 1 << 0;
        QTest::newRow("GS * then GS / 3")
            << bytes({0x1d, '*', 2, 2}) + columns + bytes({0x1d, '/', 3}) << 2 << 2 << 0;
        QTest::newRow("FS q two images, FS p 2 49")
            << bytes({0x1c, 'q', 2, 1, 0, 1, 0}) + QByteArray(8, '\0') + bytes({2, 0, 2, 0}) +
                   columns + bytes({0x1c, 'p', 2, 49})
            << 2 << 1 << 0;
    }
    // Whatever the command, the picture printed is the pattern, at its
    // scaling and in the justification that holds.
    void commands() {
        QFETCH(QByteArray, bytes);
        QFETCH(int, scaleX);
        QFETCH(int, scaleY);
        QFETCH(int, x);
        for (const qsizetype piece : {bytes.size(), qsizetype(3)}) {
            escpos::Decoder decoder;
            for (qsizetype i = 0; i < bytes.size(); i += piece) decoder.feed(bytes.mid(i, piece));
            decoder.finish();
            const escpos::Document& doc = decoder.document();
            const QString text = escpos::dump(doc);
            QVERIFY2(!text.contains(u'{'), qPrintable(text));
            const escpos::Picture* p = firstPicture(doc);
            QVERIFY2(p, qPrintable(text));
            QCOMPARE(p->width, 16);
            QCOMPARE(p->height, 16);
            QCOMPARE(p->scaleX, scaleX);
            QCOMPARE(p->scaleY, scaleY);
            QCOMPARE(p->x, x);
            for (int row = 0; row < 16; ++row)
                for (int col = 0; col < 16; ++col) QCOMPARE(p->dot(col, row), patternDot(col, row));
            // Drawn at its dot size: each dot scaleX by scaleY.
            const escpos::Sheet& sheet = doc.sheets.front();
            const QImage drawn = escpos::renderSheet(sheet);
            const QRect box = inkBox(drawn.copy(0, 0, drawn.width(), 16 + 16 * scaleY + 1));
            QCOMPARE(box, QRect(sheet.leftMargin + x, 16, 16 * scaleX, 16 * scaleY));
        }
    }

    void refused_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("why");
        QTest::newRow("GS v 0 bad mode")
            << bytes({0x1d, 'v', '0', 4, 1, 0, 1, 0, 0xFF}) << "mode d'image hors plage";
        QTest::newRow("GS v 0 of more than 16 MB")
            << bytes({0x1d, 'v', '0', 0, 0xFF, 0xFF, 0xFF, 0xFF}) << "image de plus de 16 Mo";
        QTest::newRow("print buffer empty")
            << graphics(bytes({48, 50})) << "aucune image en mémoire";
        QTest::newRow("unknown key") << graphics(bytes({48, 69, 'Z', 'Z', 1, 1})) << "aucune image";
        QTest::newRow("deleted key")
            << graphics(bytes({48, 67, 48, 'A', '1', 1, 8, 0, 1, 0, 49, 0xFF})) +
                   graphics(bytes({48, 66, 'A', '1'})) + graphics(bytes({48, 69, 'A', '1', 1, 1}))
            << "aucune image";
        QTest::newRow("data shorter than the size")
            << graphics(bytes({48, 112, 48, 1, 1, 49, 64, 0, 64, 0, 1, 2, 3}))
            << "données trop courtes";
        QTest::newRow("scale of 3") << graphics(bytes({48, 112, 48, 3, 1, 49, 8, 0, 1, 0, 0xFF}))
                                    << "paramètres hors plage";
        QTest::newRow("GS / without GS *") << bytes({0x1d, '/', 0}) << "aucune image définie";
        QTest::newRow("FS p beyond the images") << bytes({0x1c, 'p', 1, 0}) << "aucune image 1";
        QTest::newRow("FS q out of range")
            << bytes({0x1c, 'q', 1, 0, 4, 1, 0}) << "FS q : taille d'image hors plage";
    }
    // Pictures the printer cannot print show as a marker, and what follows
    // still prints.
    void refused() {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, why);
        const QString text = escpos::dump(decode(bytes + "\nOK\n"));
        QVERIFY2(text.contains(why), qPrintable(text));
        QVERIFY2(text.contains(QStringLiteral("\"OK\"")), qPrintable(text));
    }

    // A picture wider than the paper loses its right side; a tall one is
    // drawn whole, and the sheet follows it.
    void widePicture() {
        const QByteArray wide = bytes({0x1d, 'v', '0', 0, 100, 0, 2, 0}) + QByteArray(200, '\xff');
        const escpos::Picture* p = nullptr;
        const escpos::Document doc = decode(wide);
        p = firstPicture(doc);
        QVERIFY(p);
        QCOMPARE(p->width, 576);
        QCOMPARE(p->sourceWidth, 800);
        QCOMPARE(escpos::sheetHeight(doc.sheets.front()), 16 + 2 + 16);
    }

    void styles_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("line");
        QTest::newRow("GS ! width nibble")
            << QByteArray::fromHex("1d211041420a") << "ligne +30 @0 [taille 2x1] \"AB\"";
        QTest::newRow("GS ! height nibble")
            << QByteArray::fromHex("1d210141420a") << "ligne +48 @0 [taille 1x2] \"AB\"";
        QTest::newRow("GS ! 4 by 8")
            << QByteArray::fromHex("1d2137410a") << "ligne +192 @0 [taille 4x8] \"A\"";
        QTest::newRow("GS ! out of range")
            << QByteArray::fromHex("1d2180410a")
            << "ligne +30 @0 {1D 21 80 : taille de caractère hors plage} \"A\"";
        QTest::newRow("ESC ! font B")
            << QByteArray::fromHex("1b2101410a") << "ligne +30 @0 [police B] \"A\"";
        QTest::newRow("ESC ! emphasis")
            << QByteArray::fromHex("1b2108410a") << "ligne +30 @0 [gras] \"A\"";
        QTest::newRow("ESC ! double height")
            << QByteArray::fromHex("1b2110410a") << "ligne +48 @0 [taille 1x2] \"A\"";
        QTest::newRow("ESC ! double width")
            << QByteArray::fromHex("1b2120410a") << "ligne +30 @0 [taille 2x1] \"A\"";
        QTest::newRow("ESC ! underline")
            << QByteArray::fromHex("1b2180410a") << "ligne +30 @0 [souligné 1] \"A\"";
        QTest::newRow("ESC ! unused bits")
            << QByteArray::fromHex("1b2146410a") << "ligne +30 @0 \"A\"";
        QTest::newRow("ESC E") << QByteArray::fromHex("1b4501411b4500420a")
                               << "ligne +30 @0 [gras] \"A\" \"B\"";
        QTest::newRow("ESC G") << QByteArray::fromHex("1b4701410a") << "ligne +30 @0 [gras] \"A\"";
        QTest::newRow("ESC - 2") << QByteArray::fromHex("1b2d32410a")
                                 << "ligne +30 @0 [souligné 2] \"A\"";
        QTest::newRow("ESC - 1") << QByteArray::fromHex("1b2d01410a")
                                 << "ligne +30 @0 [souligné 1] \"A\"";
        QTest::newRow("ESC M 1") << QByteArray::fromHex("1b4d31410a")
                                 << "ligne +30 @0 [police B] \"A\"";
        QTest::newRow("GS B") << QByteArray::fromHex("1d4201410a")
                              << "ligne +30 @0 [inversé] \"A\"";
        QTest::newRow("ESC SP") << QByteArray::fromHex("1b200541420a")
                                << "ligne +30 @0 [pas 17] \"AB\"";
        QTest::newRow("ESC SP double width") << QByteArray::fromHex("1b20051b212041420a")
                                             << "ligne +30 @0 [taille 2x1, pas 34] \"AB\"";
        QTest::newRow("ESC 3") << QByteArray::fromHex("1b3350410a") << "ligne +80 @0 \"A\"";
        QTest::newRow("ESC 2") << QByteArray::fromHex("1b33501b32410a") << "ligne +30 @0 \"A\"";
        QTest::newRow("ESC a 1") << QByteArray::fromHex("1b610141420a") << "ligne +30 @276 \"AB\"";
        QTest::newRow("ESC a 2") << QByteArray::fromHex("1b613241420a") << "ligne +30 @552 \"AB\"";
        QTest::newRow("GS L") << QByteArray::fromHex("1d4c4000410a") << "ligne +30 @64 \"A\"";
        QTest::newRow("GS W") << QByteArray::fromHex("1d571800414243") << "ligne +30 @0 \"C\"";
        QTest::newRow("ESC $") << QByteArray::fromHex("1b246400410a") << "ligne +30 @100 \"A\"";
        QTest::newRow("ESC \\") << QByteArray::fromHex("411b5c0a00420a")
                                << "ligne +30 @0 \"A\" @22 \"B\"";
        QTest::newRow("ESC { 1") << QByteArray::fromHex("1b7b01410a")
                                 << "ligne +30 @0 [à l'envers] \"A\"";
        QTest::newRow("ESC V 1") << QByteArray::fromHex("1b5631410a")
                                 << "ligne +30 @0 [tourné 90°] \"A\"";
        QTest::newRow("ESC 4 1") << QByteArray::fromHex("1b340141420a")
                                 << "ligne +30 @0 [italique] \"AB\"";
        QTest::newRow("ESC t 1 rule")
            << QByteArray::fromHex("1b74019595950a") << "ligne +30 @0 [Katakana] \"───\"";
        QTest::newRow("ESC t 1 katakana")
            << QByteArray::fromHex("1b7401b1b2ddf10a") << "ligne +30 @0 [Katakana] \"ｱｲﾝ円\"";
        QTest::newRow("ESC D and HT") << QByteArray::fromHex("1b4402050041094209430a")
                                      << "ligne +30 @0 \"A\" @24 \"B\" @60 \"C\"";
        QTest::newRow("ESC d") << QByteArray::fromHex("411b6403") << "ligne +90 @0 \"A\"";
        QTest::newRow("ESC J") << QByteArray::fromHex("411b4a10") << "ligne +16 @0 \"A\"";
        QTest::newRow("ESC R") << QByteArray::fromHex("1b5202405b0a")
                               << "ligne +30 @0 [Allemagne] \"§Ä\"";
        QTest::newRow("GS P then ESC 3")
            << QByteArray::fromHex("1d5000b41b335a410a") << "ligne +101 @0 \"A\"";
        QTest::newRow("ESC @") << QByteArray::fromHex("1b45011b40410a") << "ligne +30 @0 \"A\"";
        QTest::newRow("ESC SP in font B") << QByteArray::fromHex("1b4d011b200241420a")
                                          << "ligne +30 @0 [police B, pas 11] \"AB\"";
        QTest::newRow("GS L and GS W")
            << QByteArray::fromHex("1d4c40001d5730004142434445460a") << "ligne +30 @64 \"EF\"";
        QTest::newRow("ESC t 13 euro")
            << QByteArray::fromHex("1b740dd50a") << "ligne +30 @0 [PC857] \"€\"";
    }
    // Every style command, as the dump shows it.
    void styles() {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, line);
        const QString text = escpos::dump(decode(bytes));
        QVERIFY2(text.split(u'\n').contains(line), qPrintable(text));
    }

    // Requests print nothing and make no sheet: they are listed with the
    // sheet they came after.
    void requests() {
        const escpos::Document doc =
            decode(QByteArray("\x10\x04\x01"
                              "A\n\x1dV0\x1dr\x01\x1d"
                              "a\x00\x1dI\x01\x10\x05\x02",
                              20));
        QCOMPARE(doc.requests.size(), size_t(1));
        QCOMPARE(doc.sheets.size(), size_t(1));
        QCOMPARE(doc.sheets.front().requests.size(), size_t(4));
        const QString text = escpos::dump(doc);
        QVERIFY2(text.contains(QStringLiteral(
                     "demande : GS r 1 : demande d'état (1D 72 01), rien d'imprimé")),
                 qPrintable(text));
        QVERIFY2(!text.contains(u'{'), qPrintable(text));
    }

    // The upside-down line is the upright line turned by half a turn.
    void upsideDown() {
        const QByteArray text("Ab,1 \x1b!\x30W\x1b!\x00 g_\n", 16);
        const escpos::Sheet upright = decode(text).sheets.front();
        const escpos::Sheet turned = decode("\x1b{\x01" + text).sheets.front();
        const QRect line(upright.leftMargin, 16, upright.printableWidth, 48);
        const QImage a = escpos::renderSheet(upright).copy(line);
        const QImage b = escpos::renderSheet(turned).copy(line).mirrored(true, true);
        QVERIFY(inkBox(a).isValid());
        QCOMPARE(a, b);
    }

    // Katakana rules join into one line; the katakana are drawn, each its own.
    void katakana() {
        const QImage rule =
            escpos::renderSheet(decode("\x1bt\x01\x95\x95\x95\x95\n").sheets.front());
        const QRect box = inkBox(rule);
        QCOMPARE(box.width(), 48);
        QVERIFY(box.height() <= 3);
        const QImage kana = escpos::renderSheet(decode("\x1bt\x01\xb1\n").sheets.front());
        const QImage other = escpos::renderSheet(decode("\x1bt\x01\xb2\n").sheets.front());
        QVERIFY(inkBox(kana).isValid());
        QVERIFY(kana != other);
    }

    // Tags of unknown bytes wrap on rows of their own, inside the paper.
    void markersWrap() {
        const escpos::Sheet sheet = decode(QByteArray(60, '\x07') + "A\n").sheets.front();
        const QImage image = escpos::renderSheet(sheet);
        const escpos::Sheet plain = decode(
                                        "\x07"
                                        "A\n")
                                        .sheets.front();
        QCOMPARE(escpos::sheetHeight(sheet), escpos::sheetHeight(plain) + 16);
        for (int y = 0; y < image.height(); ++y)
            QCOMPARE(image.pixel(image.width() - 1, y), qRgb(255, 255, 255));
    }
};

QTEST_MAIN(Pictures)
#include "test_pictures.moc"
