// Bar codes (GS k) and 2D symbols (GS ( k) as the virtual printer draws
// them, read back from the picture by an independent reader: from hand-made
// bytes, command by command, and from whole tickets made by libraries that
// nobody here wrote (tickets/, remade by their make_tickets.mjs).
#include <QtTest>

#include "decode.h"
#include "escpos/decoder.h"
#include "escpos/dump.h"
#include "support/golden.h"
#include "symbol_reader.h"

namespace {

QByteArray gsK(int m, const QByteArray& data) {
    const QByteArray head = QByteArray("\x1dk") + char(m);
    return m <= 6 ? head + data + '\0' : head + char(data.size()) + data;
}

// GS ( k pL pH cn fn parameters.
QByteArray gsParenK(int cn, int fn, const QByteArray& parameters) {
    const qsizetype length = parameters.size() + 2;
    return QByteArray("\x1d(k") + char(length & 0xFF) + char(length >> 8) + char(cn) + char(fn) +
           parameters;
}

// Readers give GS1 data with or without the identifiers' parentheses and
// the group separators between fields; they are compared without them.
QString bare(QString text) {
    return text.remove(u'(').remove(u')').remove(QChar(0x1d));
}

std::vector<const escpos::Marker*> markers(const escpos::Sheet& sheet) {
    std::vector<const escpos::Marker*> found;
    for (const escpos::Block& block : sheet.blocks)
        if (const auto* line = std::get_if<escpos::Line>(&block))
            for (const escpos::Marker& m : line->markers) found.push_back(&m);
    return found;
}

QStringList lineTexts(const escpos::Sheet& sheet) {
    QStringList texts;
    for (const escpos::Block& block : sheet.blocks)
        if (const auto* line = std::get_if<escpos::Line>(&block)) {
            QString text;
            for (const escpos::LineItem& item : line->items)
                if (const auto* run = std::get_if<escpos::TextRun>(&item)) text += run->text();
            texts << text.trimmed();
        }
    return texts;
}

// One symbol from bytes: it is drawn (or refused, when read starts with
// '!', for the reason that follows), the bytes after it are text again, no
// marker is left, and the reader finds read in the picture ("" for kinds no
// reader here knows).
void checkSymbol(const QByteArray& bytes, const QString& read) {
    const escpos::Document doc = decode(QByteArray("\x1dw\x02") + bytes + "OK\n");
    QCOMPARE(doc.sheets.size(), size_t(1));
    const escpos::Sheet& sheet = doc.sheets.front();
    const QString dump = escpos::dump(doc);
    QVERIFY2(markers(sheet).empty(), qPrintable(dump));
    QVERIFY2(lineTexts(sheet).contains(QStringLiteral("OK")), qPrintable(dump));
    std::vector<DrawnSymbol> drawn = readDrawnSymbols(sheet);
    std::erase_if(drawn, [](const DrawnSymbol& d) { return !d.symbol; });
    QCOMPARE(drawn.size(), size_t(1));
    const escpos::Barcode& symbol = *drawn.front().symbol;
    if (read.startsWith(u'!')) {
        QVERIFY2(symbol.error.startsWith(read.mid(1)), qPrintable(dump));
        return;
    }
    QVERIFY2(symbol.error.isEmpty(), qPrintable(dump));
    QVERIFY(!symbol.picture.isNull());
    if (read.isEmpty()) return;
    QStringList found;
    for (const QString& text : drawn.front().read) found << bare(text);
    QVERIFY2(found.contains(bare(read)),
             qPrintable(dump + QStringLiteral("read: ") + drawn.front().read.join(u'|')));
}

// What another library's ticket says a reader must find: "text ..." and
// "symbol ..." lines.
QStringList expectations(const QString& binPath, const QString& kind) {
    QFile file(QString(binPath).replace(QStringLiteral(".bin"), QStringLiteral(".expect")));
    if (!file.open(QIODevice::ReadOnly)) return {};
    QStringList found;
    for (const QString& line : QString::fromUtf8(file.readAll()).split(u'\n'))
        if (line.startsWith(kind + u' ')) found << line.mid(kind.size() + 1);
    return found;
}

}  // namespace

class EscPosSymbols : public QObject {
    Q_OBJECT
  private slots:
    void barcodes_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("read");  // or '!' and the start of the refusal
        auto row = [](const char* name, int m, const QByteArray& data, const QString& read) {
            QTest::newRow(name) << gsK(m, data) << read;
        };
        // Both forms of each classic symbology.
        row("UPC-A, check digit added", 0, "03600029145", "036000291452");
        row("UPC-A counted", 65, "036000291452", "036000291452");
        row("UPC-A wrong check digit", 65, "036000291453", "!");
        row("UPC-E", 1, "0425261", "04252614");
        row("UPC-E counted", 66, "04252614", "04252614");
        row("EAN13", 2, "327024114022", "3270241140224");
        row("EAN13 counted with check digit", 67, "3270241140224", "3270241140224");
        row("EAN13 letters", 67, "32702411402A", "!des chiffres seulement");
        row("EAN8", 3, "9638507", "96385074");
        row("EAN8 counted", 68, "96385074", "96385074");
        row("CODE39 with its stars", 4, "*AB-1*", "AB-1");
        row("CODE39 counted", 69, "KALVO 17", "KALVO 17");
        row("ITF", 5, "12345678", "12345678");
        row("ITF odd count", 70, "123", "!un nombre pair de chiffres");
        // The reader gives Codabar without its start and stop letters.
        row("CODABAR", 6, "A40156B", "40156");
        row("CODABAR counted", 71, "C1234D", "1234");
        row("CODE93", 72, "TEST93", "TEST93");
        row("CODE128 set B", 73, "{BKalvo-17", "Kalvo-17");
        row("CODE128 set C pairs", 73, "{C\x0c\x22\x38", "123456");
        row("CODE128 sets B then C", 73, "{BNo{C\x0c\x22", "No1234");
        row("CODE128 brace", 73, "{Ba{{b", "a{b");
        row("CODE128 without a set", 73, "12", "!les données commencent");
        row("GS1-128 in parentheses", 74, "(01)03270241140224(10)LOT7", "010327024114022410LOT7");
        row("GS1-128 bare", 74, "0103270241140224{110LOT7", "010327024114022410LOT7");
        row("DataBar omnidirectional", 75, "0327024114022", "03270241140224");
        row("DataBar truncated", 76, "0327024114022", "03270241140224");
        row("DataBar limited", 77, "0327024114022", "");
        row("DataBar expanded", 78, "(01)03270241140224(10)LOT7", "010327024114022410LOT7");
        row("CODE128 automatic", 79, "Kalvo 17, 2026", "Kalvo 17, 2026");
        row("DataBar with letters", 75, "032702411402A", "!des chiffres seulement");
        row("GS1-128 not GS1", 74, "ABC", "!");
        QTest::newRow("unknown system") << QByteArray("\x1dk\x07") + "OK\n"
                                        << "";
    }
    void barcodes() {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, read);
        if (QByteArray(QTest::currentDataTag()) == "unknown system") {
            // Three bytes refused with a marker; the rest is text.
            const escpos::Document doc = decode(bytes);
            QCOMPARE(markers(doc.sheets.front()).size(), size_t(1));
            QVERIFY(lineTexts(doc.sheets.front()).contains(QStringLiteral("OK")));
            return;
        }
        checkSymbol(bytes, read);
    }

    void symbols_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("read");
        auto store = [](int cn, const QByteArray& data) { return gsParenK(cn, 80, '0' + data); };
        auto print = [](int cn) { return gsParenK(cn, 81, "0"); };
        QTest::newRow("QR, the printer's defaults")
            << store(49, "Kalvo QR") + print(49) << "Kalvo QR";
        QTest::newRow("QR model 2, module 6, level H")
            << gsParenK(49, 65, "2\0") + gsParenK(49, 67, "\x06") + gsParenK(49, 69, "3") +
                   store(49, "https://kalvo.example/t/17") + print(49)
            << "https://kalvo.example/t/17";
        QTest::newRow("QR model 1, drawn as model 2")
            << gsParenK(49, 65, "1\0") + store(49, "M1") + print(49) << "M1";
        QTest::newRow("micro QR") << gsParenK(49, 65, "3\0") + store(49, "12345") + print(49)
                                  << "12345";
        QTest::newRow("PDF417") << store(48, "Kalvo ticket 17") + print(48) << "Kalvo ticket 17";
        QTest::newRow("PDF417 columns, rows, module, row height, level")
            << gsParenK(48, 65, "\x04") + gsParenK(48, 66, "\x0a") + gsParenK(48, 67, "\x02") +
                   gsParenK(48, 68, "\x04") + gsParenK(48, 69, "02") + store(48, "PDF 17") +
                   print(48)
            << "PDF 17";
        QTest::newRow("PDF417 truncated")
            << gsParenK(48, 70, QByteArray(1, '\x01')) + store(48, "PDF 17") + print(48) << "";
        QTest::newRow("MaxiCode mode 4")
            << gsParenK(50, 65, "4") + store(50, "Kalvo 17") + print(50) << "";
        QTest::newRow("MaxiCode mode 2, the printer's default") << store(50,
                                                                         "152382802\x1d"
                                                                         "840\x1d"
                                                                         "001\x1dKalvo 17") +
                                                                       print(50)
                                                                << "";
        QTest::newRow("MaxiCode mode 2 without its postcode")
            << store(50, "Kalvo 17") + print(50) << "!code postal, pays et classe attendus";
        QTest::newRow("DataBar stacked")
            << gsParenK(51, 67, "\x03") + store(51, "H0327024114022") + print(51) << "";
        QTest::newRow("DataBar expanded stacked")
            << gsParenK(51, 71, QByteArray("\x2c\x01", 2)) +
                   store(51, "L(01)03270241140224(10)LOT7") + print(51)
            << "";
        QTest::newRow("composite, EAN13 and CC-A")
            << gsParenK(52, 80, "00B327024114022") + gsParenK(52, 80, "01A(10)LOT7") + print(52)
            << "3270241140224";
        QTest::newRow("Aztec") << store(53, "Kalvo Aztec") + print(53) << "Kalvo Aztec";
        QTest::newRow("Aztec compact, 2 layers, module 4, 50 %")
            << gsParenK(53, 66, QByteArray("\x01\x02", 2)) + gsParenK(53, 67, "\x04") +
                   gsParenK(53, 69, "\x32") + store(53, "AZ 17") + print(53)
            << "AZ 17";
        QTest::newRow("DataMatrix") << store(54, "Kalvo DM") + print(54) << "Kalvo DM";
        QTest::newRow("DataMatrix rectangle 12x26")
            << gsParenK(54, 66, QByteArray("\x01\x1a\x0c", 3)) + store(54, "DM 17") + print(54)
            << "DM 17";
        // Hostile or forgotten settings: refused, never drawn beyond the paper.
        QTest::newRow("printed with nothing stored") << print(49) << "!aucune donnée enregistrée";
        QTest::newRow("QR wider than the paper")
            << gsParenK(49, 67, "\x10") + store(49, QByteArray(400, 'x')) + print(49)
            << "!plus large que le papier";
        QTest::newRow("QR of 65000 bytes")
            << store(49, QByteArray(65000, '\x80')) + print(49) << "!";
    }
    void symbols() {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, read);
        checkSymbol(bytes, read);
    }

    // Settings out of range and unknown symbols leave a marker each and
    // change nothing; the symbol after them keeps the defaults.
    void badSettings() {
        const QByteArray bytes = gsParenK(49, 67, "\x11") + gsParenK(49, 69, "4") +
                                 gsParenK(60, 81, "0") + gsParenK(49, 99, "") +
                                 QByteArray("\x1d(k\x00\x00", 5) + gsParenK(54, 80, "0") +
                                 gsParenK(49, 80, "0QR") + gsParenK(49, 81, "0");
        const escpos::Document doc = decode(bytes);
        const QString dump = escpos::dump(doc);
        QCOMPARE(markers(doc.sheets.front()).size(), size_t(6));
        QVERIFY2(dump.contains(QStringLiteral("modèle 2, module 3, correction L")),
                 qPrintable(dump));
    }

    // The dump names each symbol, its data and what shaped it.
    void dump() {
        const QByteArray bytes =
            QByteArray(
                "\x1b"
                "a1\x1dH\x02") +
            gsK(67, "3270241140224") + gsK(75, "0327024114022") + gsParenK(49, 67, "\x04") +
            gsParenK(49, 80, "0Kalvo QR") + gsParenK(49, 81, "0") + gsParenK(48, 80, "0PDF 17") +
            gsParenK(48, 81, "0") + gsParenK(50, 80, "0Kalvo 17") + gsParenK(50, 81, "0") +
            gsParenK(51, 80, "0H0327024114022") + gsParenK(51, 81, "0") +
            gsParenK(53, 80, "0AZ 17") + gsParenK(53, 81, "0") + gsParenK(54, 80, "0DM 17") +
            gsParenK(54, 81, "0") + gsParenK(54, 67, "\x10") +
            gsParenK(54, 80, QByteArray(300, 'x')) + gsParenK(54, 81, "0");
        const QString mismatch =
            goldenMismatch(QStringLiteral("escpos"), QStringLiteral("symboles.txt"),
                           escpos::dump(decode(bytes)).toUtf8());
        QVERIFY2(mismatch.isEmpty(), qPrintable(mismatch));
    }

    void tickets_data() {
        QTest::addColumn<QString>("path");
        const QDir folder(QStringLiteral(KALVO_TICKETS));
        // The tickets that say what a reader must find on them; the picture
        // tickets beside them are the pictures test's.
        for (const QString& name : folder.entryList({QStringLiteral("*.expect")}, QDir::Files)) {
            const QString bin = name.chopped(6) + QStringLiteral("bin");
            QTest::newRow(qPrintable(bin)) << folder.filePath(bin);
        }
    }
    // Each ticket drawn whole: its text with the accents and the euro of its
    // code page, no marker at all, no sheet without print, every symbol and
    // every symbol sent as a picture drawn and read back as the library was
    // asked to print it.
    void tickets() {
        QFETCH(QString, path);
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const escpos::Document doc = decode(file.readAll());
        QVERIFY(!doc.sheets.empty());
        const QString dump = escpos::dump(doc);
        QStringList texts, reads, refused, left;
        for (const escpos::Sheet& sheet : doc.sheets) {
            QVERIFY2(!sheet.blocks.empty(), qPrintable(QStringLiteral("an empty sheet\n") + dump));
            for (const escpos::Marker* m : markers(sheet))
                left << QString::fromLatin1(m->bytes().toHex(' ')) + QStringLiteral(" : ") + m->why;
            texts += lineTexts(sheet);
            for (const DrawnSymbol& d : readDrawnSymbols(sheet)) {
                if (d.symbol && !d.symbol->error.isEmpty())
                    refused << d.symbol->symbology + u' ' + d.symbol->error;
                for (const QString& r : d.read) reads << bare(r);
            }
        }
        QVERIFY2(left.isEmpty(), qPrintable(left.join(u'\n')));
        QVERIFY2(refused.isEmpty(), qPrintable(refused.join(u'\n')));
        for (const QString& text : expectations(path, QStringLiteral("text")))
            QVERIFY2(texts.contains(text), qPrintable(text + u'\n' + dump));
        const QStringList symbols = expectations(path, QStringLiteral("symbol"));
        QVERIFY(!symbols.isEmpty());
        for (const QString& symbol : symbols)
            QVERIFY2(reads.contains(bare(symbol)),
                     qPrintable(symbol + QStringLiteral(" not read; read: ") + reads.join(u'|')));
        // A symbol that the library sent as a picture (receiptline's QR code).
        for (const QString& symbol : expectations(path, QStringLiteral("picture-symbol")))
            QVERIFY2(reads.contains(bare(symbol)),
                     qPrintable(symbol + QStringLiteral(" not read; read: ") + reads.join(u'|')));
    }
};

QTEST_MAIN(EscPosSymbols)
#include "test_symbols.moc"
