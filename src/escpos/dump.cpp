#include "escpos/dump.h"

#include <QStringList>
#include <limits>

#include "escpos/code_tables.h"

namespace escpos {

namespace {

QString hexOf(const QByteArray& bytes) {
    return QString::fromLatin1(bytes.toHex(' ')).toUpper();
}

QString styleTags(const TextRun& run, const QByteArray& bytes) {
    const Style& s = run.style;
    QStringList tags;
    if (s.bold) tags << QStringLiteral("gras");
    if (s.underline) tags << QStringLiteral("souligné %1").arg(s.underline);
    if (s.fontB) tags << QStringLiteral("police B");
    if (s.widthScale > 1 || s.heightScale > 1)
        tags << QStringLiteral("taille %1x%2").arg(s.widthScale).arg(s.heightScale);
    if (s.reverse) tags << QStringLiteral("inversé");
    if (s.upsideDown) tags << QStringLiteral("à l'envers");
    if (s.rotated) tags << QStringLiteral("tourné 90°");
    if (s.italic) tags << QStringLiteral("italique");
    const bool high =
        std::any_of(bytes.begin(), bytes.end(), [](char c) { return uchar(c) >= 0x80; });
    if (high) tags << codeTableName(s.codeTable);
    if (s.international) tags << internationalName(s.international);
    if (run.pitch != s.cellWidth()) tags << QStringLiteral("pas %1").arg(run.pitch);
    return tags.isEmpty() ? QString()
                          : u'[' + tags.join(QStringLiteral(", ")) + QStringLiteral("] ");
}

QString quotedText(const QString& text) {
    QString out = QStringLiteral("\"");
    for (const QChar c : text) {
        if (c == u'"' || c == u'\\') out += u'\\';
        if (c.unicode() < 0x20 || c.unicode() == 0x7F)
            out += QStringLiteral("\\x%1").arg(c.unicode(), 2, 16, QLatin1Char('0'));
        else
            out += c;
    }
    return out + u'"';
}

QStringList imageRows(const BitImage& image) {
    QStringList rows;
    if (image.columns > 128) return rows;
    for (int row = 0; row < image.dotsPerColumn; ++row) {
        QString r;
        for (int col = 0; col < image.columns; ++col) r += image.dot(col, row) ? u'#' : u'.';
        rows << QStringLiteral("      |") + r + u'|';
    }
    return rows;
}

// The dots of small pictures, a row a line.
QStringList pictureText(const Picture& p) {
    QStringList out{QStringLiteral("image %1 : %2x%3 points, %4x%5 → %6x%7 @%8")
                        .arg(p.command)
                        .arg(p.width)
                        .arg(p.height)
                        .arg(p.scaleX)
                        .arg(p.scaleY)
                        .arg(p.printedWidth())
                        .arg(p.printedHeight())
                        .arg(p.x)};
    if (p.sourceWidth > p.width)
        out.back() += QStringLiteral(" (%1 points coupés à droite)").arg(p.sourceWidth - p.width);
    if (p.width > 128 || p.height > 128) return out;
    for (int row = 0; row < p.height; ++row) {
        QString r;
        for (int col = 0; col < p.width; ++col) r += p.dot(col, row) ? u'#' : u'.';
        out << QStringLiteral("    |") + r + u'|';
    }
    return out;
}

}  // namespace

QString dumpRequest(const Request& r) {
    if (r.bytes.isEmpty()) return QStringLiteral("sans impression : ") + r.what;
    return QStringLiteral("demande : %1 (%2), rien d'imprimé").arg(r.what, hexOf(r.bytes));
}

namespace {

QString markerText(const Marker& m) {
    QString bytes = hexOf(m.bytes());
    if (m.size > Marker::kept) bytes += QStringLiteral(" … (%1 octets)").arg(m.size);
    return QStringLiteral("{%1 : %2}").arg(bytes, m.why);
}

// One line's items, with its markers where they came (a marker within a run
// splits its text there); the rows of its images follow the line.
QStringList lineText(const Line& line, const QString& head) {
    QString text = head;
    QStringList extra;
    int expected = -1;
    size_t nextMarker = 0;
    auto place = [&](int x) {
        text += u' ';
        if (x != expected) text += QStringLiteral("@%1 ").arg(x);
    };
    auto markersUpTo = [&](int x) {
        for (; nextMarker < line.markers.size() && line.markers[nextMarker].x <= x; ++nextMarker) {
            place(line.markers[nextMarker].x);
            text += markerText(line.markers[nextMarker]);
            expected = line.markers[nextMarker].x;
        }
    };
    for (const LineItem& item : line.items) {
        if (const auto* run = std::get_if<TextRun>(&item)) {
            const QString printed = run->text();
            qsizetype from = 0;
            while (from < printed.size()) {
                markersUpTo(run->x + int(from) * run->pitch);
                // Up to the next marker inside the run, or its end.
                qsizetype to = printed.size();
                if (nextMarker < line.markers.size() &&
                    line.markers[nextMarker].x < run->x + run->width())
                    to = std::max<qsizetype>(
                        from + 1,
                        (line.markers[nextMarker].x - run->x + run->pitch - 1) / run->pitch);
                place(run->x + int(from) * run->pitch);
                text += styleTags(*run, run->bytes.mid(from, to - from)) +
                        quotedText(printed.mid(from, to - from));
                expected = run->x + int(to) * run->pitch;
                from = to;
            }
        } else {
            const auto& image = std::get<BitImage>(item);
            markersUpTo(image.x);
            place(image.x);
            text += QStringLiteral("[image ESC * %1 : %2 colonnes de %3 points, %4x%5 → %6x%7]")
                        .arg(image.mode)
                        .arg(image.columns)
                        .arg(image.dotsPerColumn)
                        .arg(image.scaleX)
                        .arg(image.scaleY)
                        .arg(image.width())
                        .arg(image.height());
            extra << imageRows(image);
            expected = image.x + image.width();
        }
    }
    markersUpTo(std::numeric_limits<int>::max());
    return QStringList{text} + extra;
}

QString barcodeText(const Barcode& b) {
    static const char* const hri[] = {"sans texte", "texte dessus", "texte dessous",
                                      "texte dessus et dessous"};
    const bool linear = b.command == QStringLiteral("GS k");
    QString text =
        QStringLiteral("%1 %2 (%3 %4=%5) %6")
            .arg(linear ? QStringLiteral("code-barres") : QStringLiteral("symbole"), b.symbology,
                 b.command, linear ? QStringLiteral("m") : QStringLiteral("cn"))
            .arg(b.system)
            .arg(quotedText(QString::fromLatin1(b.data)));
    if (linear)
        text += QStringLiteral(", module %1, hauteur %2, %3")
                    .arg(b.module)
                    .arg(b.height)
                    .arg(QLatin1String(hri[b.hriPosition & 3]));
    else
        text += QStringLiteral(", ") + b.settings;
    if (linear && b.hriPosition)
        text += b.hriFontB ? QStringLiteral(" police B") : QStringLiteral(" police A");
    if (!b.error.isEmpty()) return text + QStringLiteral("\n    refusé : ") + b.error;
    text += QStringLiteral("\n    @%1 %2x%3 points").arg(b.x).arg(b.width).arg(b.picture.height());
    if (linear) text += QStringLiteral(", texte ") + quotedText(b.hri);
    return text;
}

QStringList pageText(const Page& p) {
    static const char* const directions[] = {"de gauche à droite", "de bas en haut",
                                             "de droite à gauche", "de haut en bas"};
    QStringList out{QStringLiteral("page @%1,%2 %3x%4 points (unités 1/%5 x 1/%6 po), %7")
                        .arg(p.x)
                        .arg(p.y)
                        .arg(p.width)
                        .arg(p.height)
                        .arg(p.unitX)
                        .arg(p.unitY)
                        .arg(p.end)};
    int direction = -1;
    for (const PageLine& l : p.lines) {
        if (l.direction != direction) {
            direction = l.direction;
            out << QStringLiteral("  sens %1 : %2")
                       .arg(direction)
                       .arg(QString::fromUtf8(directions[direction & 3]));
        }
        for (const QString& row : lineText(l.line, QStringLiteral("  v=%1").arg(l.v))) out << row;
    }
    return out;
}

QStringList blockText(const Block& block) {
    if (const auto* line = std::get_if<Line>(&block))
        return lineText(*line, QStringLiteral("ligne +%1").arg(line->advance));
    if (const auto* b = std::get_if<Barcode>(&block)) return {barcodeText(*b)};
    if (const auto* cut = std::get_if<Cut>(&block)) {
        QString text =
            cut->partial ? QStringLiteral("coupe partielle") : QStringLiteral("coupe totale");
        if (cut->feed) text += QStringLiteral(" après %1 points d'avance").arg(cut->feed);
        return {text + QStringLiteral(" (%1)").arg(hexOf(cut->bytes))};
    }
    if (const auto* p = std::get_if<Pulse>(&block))
        return {QStringLiteral("tiroir : impulsion broche %1, %2 ms marche, %3 ms arrêt (%4)")
                    .arg(p->pin)
                    .arg(p->onMs)
                    .arg(p->offMs)
                    .arg(hexOf(p->bytes))};
    if (const auto* page = std::get_if<Page>(&block)) return pageText(*page);
    if (const auto* picture = std::get_if<Picture>(&block)) return pictureText(*picture);
    if (const auto* note = std::get_if<Note>(&block))
        return {QStringLiteral("note : ") + note->text};
    return {};
}

}  // namespace

QString dumpSheet(const Sheet& sheet, int number) {
    const bool slip = sheet.paper == Sheet::Paper::Slip;
    QStringList out{QStringLiteral("== %1 %2 : %3, %4")
                        .arg(slip ? QStringLiteral("feuille") : QStringLiteral("ticket"))
                        .arg(number)
                        .arg(slip ? QStringLiteral("feuille glissée")
                                  : QStringLiteral("rouleau de %1 points").arg(sheet.paperWidth))
                        .arg(sheet.end)};
    for (const Block& block : sheet.blocks)
        for (const QString& row : blockText(block)) out << row;
    for (const Request& r : sheet.requests) out << dumpRequest(r);
    return out.join(u'\n') + u'\n';
}

QString dump(const Document& doc) {
    QString out;
    for (const Request& r : doc.requests) out += dumpRequest(r) + u'\n';
    int number = 0;
    for (const Sheet& sheet : doc.sheets) out += dumpSheet(sheet, ++number);
    return out;
}

}  // namespace escpos
