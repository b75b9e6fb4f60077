#include "escpos/decoder.h"

#include <algorithm>

#include "escpos/symbols.h"

namespace escpos {

namespace {

constexpr unsigned char HT = 0x09, LF = 0x0A, FF = 0x0C, CR = 0x0D, DLE = 0x10, CAN = 0x18,
                        ESC = 0x1B, FS = 0x1C, GS = 0x1D;

constexpr int defaultLineSpacing = 30;  // 3.75 mm
constexpr int defaultPageHeight = 1662;
constexpr int maxBarcodeData = 255;
// No feed, and no page, longer than a metre of paper: a printer would stop
// for want of paper long before, and the picture has to fit in memory.
constexpr int maxLength = 8000;

unsigned char at(QByteArrayView c, qsizetype i) {
    return static_cast<unsigned char>(c.at(i));
}
int word(QByteArrayView c, qsizetype i) {
    return at(c, i) | at(c, i + 1) << 8;
}

// Parameters given either as 0, 1, 2 or as the digits '0', '1', '2'.
int digitParam(unsigned char n) {
    return n >= '0' && n <= '9' ? n - '0' : n;
}

QString hexOf(QByteArrayView bytes) {
    return QString::fromLatin1(bytes.toByteArray().toHex(' ')).toUpper();
}

// Fixed lengths of the commands after ESC, by their second byte; 0 for those
// whose length depends on their parameters or which are not known.
qsizetype escFixedLength(unsigned char b) {
    switch (b) {
        case '@':
        case '2':
        case 'L':
        case 'S':
        case 'i':
        case 'm':
        case '<':
        case 'v':
        case FF:
            return 2;
        case ' ':
        case '!':
        case '-':
        case '3':
        case 'E':
        case 'G':
        case 'J':
        case 'M':
        case 'R':
        case 'T':
        case 'V':
        case '4':
        case 'a':
        case 'd':
        case 't':
        case '{':
        case '%':
        case '?':
        case '=':
        case 'K':
        case 'e':
        case 'r':
        case 'u':
        case 'U':
        case 'z':
            return 3;
        case '$':
        case '\\':
        case 'c':
        case 'f':
            return 4;
        case 'p':
            return 5;
        case 'W':
            return 10;
        default:
            return 0;
    }
}

qsizetype gsFixedLength(unsigned char b) {
    switch (b) {
        case ':':
        case 'c':
            return 2;
        case '!':
        case 'B':
        case 'H':
        case 'f':
        case 'h':
        case 'w':
        case 'a':
        case 'r':
        case 'I':
        case 'b':
        case '/':
        case 'E':
            return 3;
        case 'P':
        case 'L':
        case 'W':
        case '$':
        case '\\':
            return 4;
        case '^':
            return 5;
        default:
            return 0;
    }
}

}  // namespace

Decoder::Decoder(int paperMillimetres) : paperMillimetres_(paperMillimetres) {
    reset();
}

int Decoder::finishedSheets() const {
    return int(std::count_if(doc_.sheets.begin(), doc_.sheets.end(),
                             [](const Sheet& s) { return s.finished; }));
}

void Decoder::reset() {
    style_ = Style{};
    lineSpacing_ = defaultLineSpacing;
    justification_ = 0;
    rightSpacing_ = 0;
    leftMargin_ = 0;
    areaWidth_ = 0;
    tabs_.clear();
    for (int i = 1; i <= 32; ++i) tabs_ << i * 8 * 12;
    unitX_ = unitY_ = dotsPerInch;
    slipSelected_ = false;
    barModule_ = 3;
    barHeight_ = 162;
    hriPosition_ = 0;
    hriFontB_ = false;
    symbols_ = SymbolSettings{};
    // The print buffer and the downloaded bit image go; graphics kept by key
    // code stay for the run.
    pictures_.buffer.reset();
    pictures_.bitImage.reset();
    pageMode_ = false;
    direction_ = 0;
    page_ = Page{};
    line_.start(0, printableWidth());
}

int Decoder::dotsX(int units) const {
    return int(qint64(units) * dotsPerInch / unitX_);
}
int Decoder::dotsY(int units) const {
    return std::min(unitsY(units), maxLength);
}

int Decoder::unitsY(int units) const {
    return int(qint64(units) * dotsPerInch / unitY_);
}

// ---------------------------------------------------------------- framing

void Decoder::feed(QByteArrayView bytes) {
    pending_.append(bytes.data(), bytes.size());
    if (pending_.size() < needed_) return;
    qsizetype pos = 0;
    const qsizetype size = pending_.size();
    const QByteArrayView all(pending_);
    while (pos < size) {
        const unsigned char b = at(all, pos);
        if (b >= 0x20 && !pageMode_) {
            // Printable characters, the bulk of any ticket.
            if (!line_.addChar(b, style_, rightSpacing_)) {
                printLine();
                line_.addChar(b, style_, rightSpacing_);
            }
            ++pos;
            continue;
        }
        const qsizetype length = commandLength(all.sliced(pos));
        if (length < 0) {
            needed_ = -length;
            break;
        }
        execute(all.sliced(pos, length));
        pos += length;
    }
    pending_.remove(0, pos);
    if (pending_.isEmpty()) needed_ = 0;
}

qsizetype Decoder::commandLength(QByteArrayView d) const {
    const qsizetype have = d.size();
    const unsigned char b = at(d, 0);
    if (b != ESC && b != GS && b != FS && b != DLE) return 1;
    // Short of bytes: how many the command needs at least, as a negative.
    const qsizetype more = -(have + 1);
    if (have < 2) return more;
    const unsigned char c = at(d, 1);
    auto whole = [&](qsizetype length) { return have >= length ? length : -length; };
    if (b == DLE) {
        if (c == 0x04 || c == 0x05) return whole(3);
        if (c == 0x14) {
            if (have < 3) return more;
            const unsigned char fn = at(d, 2);
            return whole(fn == 8 ? 10 : (fn == 1 || fn == 2) ? 5 : 3);
        }
        return 1;
    }
    if (b == ESC) {
        if (const qsizetype fixed = escFixedLength(c)) return whole(fixed);
        if (c == '*') {
            if (have < 5) return more;
            const int m = at(d, 2), k = word(d, 3);
            if (m == 0 || m == 1) return whole(5 + k);
            if (m == 32 || m == 33) return whole(5 + 3 * qsizetype(k));
            return 3;
        }
        if (c == 'D') {
            // Tab positions up to NUL, or up to a position that does not
            // increase (which is then data), 32 at most.
            int last = 0;
            for (qsizetype i = 2; i < 2 + 33; ++i) {
                if (i >= have) return more;
                const int n = at(d, i);
                if (n == 0) return i + 1;
                if (n <= last || i == 2 + 32) return i;
                last = n;
            }
            return 2 + 32;
        }
        if (c == '&') {
            if (have < 5) return more;
            const int y = at(d, 2), c1 = at(d, 3), c2 = at(d, 4);
            qsizetype length = 5;
            for (int code = c1; code <= c2; ++code) {
                if (length >= have) return more;
                length += 1 + qsizetype(at(d, length)) * y;
            }
            return whole(length);
        }
        return 2;
    }
    if (b == GS) {
        if (const qsizetype fixed = gsFixedLength(c)) return whole(fixed);
        if (have < 3 && (c == 'V' || c == 'k' || c == 'v' || c == '(' || c == '*' || c == '8'))
            return more;
        switch (c) {
            case 'V': {
                const int m = at(d, 2);
                return whole(m == 65 || m == 66 || (m >= 97 && m <= 104) ? 4 : 3);
            }
            case 'k': {
                const int m = at(d, 2);
                if (m <= 6) {
                    for (qsizetype i = 3; i < 3 + maxBarcodeData + 1; ++i) {
                        if (i >= have) return more;
                        if (at(d, i) == 0) return i + 1;
                    }
                    return 3 + maxBarcodeData + 1;
                }
                if (m >= 65 && m <= 79) return have < 4 ? more : whole(4 + at(d, 3));
                return 3;
            }
            case 'v':
                if (at(d, 2) != '0') return 3;
                if (have < 8) return more;
                // No picture of more than 16 MB: the header alone is taken.
                return qsizetype(word(d, 4)) * word(d, 6) > (1 << 24)
                           ? 8
                           : whole(8 + qsizetype(word(d, 4)) * word(d, 6));
            case '(':
                return have < 5 ? more : whole(5 + word(d, 3));
            case '*':
                return have < 4 ? more : whole(4 + qsizetype(at(d, 2)) * at(d, 3) * 8);
            case '8': {
                if (at(d, 2) != 'L') return 3;
                if (have < 7) return more;
                const qint64 length = qint64(word(d, 3)) | qint64(word(d, 5)) << 16;
                return length > (1 << 24) ? 3 : whole(7 + length);
            }
            default:
                return 2;
        }
    }
    // FS
    switch (c) {
        case '.':
        case '&':
            return 2;
        case '!':
        case '-':
        case 'C':
        case 'W':
            return whole(3);
        case 'p':
        case 'S':
            return whole(4);
        case 'q':
            return nvBitImagesLength(d);
        case '(':
            return have < 5 ? more : whole(5 + word(d, 3));
        default:
            return 2;
    }
}

void Decoder::finish() {
    if (!pending_.isEmpty()) {
        const QByteArrayView left(pending_);
        mark(left.first(std::min<qsizetype>(left.size(), 16)),
             QStringLiteral("commande incomplète : il manque des octets à la fin"));
        pending_.clear();
        needed_ = 0;
    }
    if (pageMode_) {
        printPage(QStringLiteral("jamais imprimée : il manque FF"), false);
        pageMode_ = false;
    }
    if (!line_.empty()) {
        printLine();
        addBlock(
            Note{QStringLiteral("ligne restée dans l'imprimante : il manque un saut de ligne")});
    }
    dropBlankSheet();
    for (Sheet& s : doc_.sheets)
        if (!s.finished && s.end.isEmpty()) s.end = QStringLiteral("en attente");
}

// ---------------------------------------------------------------- commands

void Decoder::execute(QByteArrayView c) {
    const unsigned char b = at(c, 0);
    if (b == ESC) return escape(c);
    if (b == GS) return groupSeparator(c);
    if (b == FS) return fileSeparator(c);
    if (b == DLE) return realTime(c);
    control(b, c);
}

void Decoder::control(unsigned char b, QByteArrayView c) {
    if (pageMode_ && b >= 0x20) {
        if (!line_.addChar(b, style_, rightSpacing_)) {
            pageLineDone(lineSpacing_);
            line_.addChar(b, style_, rightSpacing_);
        }
        return;
    }
    switch (b) {
        case LF:
            return pageMode_ ? pageLineDone(lineSpacing_) : printLine();
        case CR:
            // Without automatic line feed: nothing in standard mode, back to
            // the start of the line in page mode (the next text overprints).
            if (pageMode_) pageLineDone(0);
            return;
        case HT: {
            const int x = line_.x();
            for (const int tab : tabs_)
                if (tab > x) {
                    if (tab < pageLineLength()) line_.moveTo(tab);
                    return;
                }
            return;
        }
        case FF:
            if (pageMode_) return printPage(QStringLiteral("FF"), false);
            if (slipSelected_) return ejectSlip(c);
            return printLine();
        case CAN:
            if (pageMode_) {
                page_.lines.clear();
                startPageLine();
                return;
            }
            return mark(c, QStringLiteral("CAN hors du mode page"));
        case 0:
            return mark(c, QStringLiteral("octet nul, ignoré"));
        default:
            return mark(c, QStringLiteral("caractère de commande inconnu"));
    }
}

void Decoder::escape(QByteArrayView c) {
    if (c.size() < 2) return;
    const unsigned char cmd = at(c, 1);
    const int n = c.size() > 2 ? at(c, 2) : 0;
    switch (cmd) {
        case '@':
            if (pageMode_ && !page_.lines.empty())
                addBlock(Note{QStringLiteral("page effacée par ESC @ sans avoir été imprimée")});
            reset();
            return;
        case '!':
            style_.fontB = n & 1;
            style_.bold = n & 8;
            style_.heightScale = n & 16 ? 2 : 1;
            style_.widthScale = n & 32 ? 2 : 1;
            style_.underline = n & 128 ? 1 : 0;
            return;
        case 'E':
        case 'G':
            style_.bold = n & 1;
            return;
        case '-':
            if (digitParam(n) > 2)
                return mark(c, QStringLiteral("épaisseur de soulignement hors plage"));
            style_.underline = digitParam(n);
            return;
        case 'M':
            style_.fontB = digitParam(n) == 1;
            return;
        case 't':
            style_.codeTable = n;
            if (!codeTable(n).known)
                mark(c, QStringLiteral("table de caractères %1 inconnue").arg(n));
            return;
        case 'R':
            style_.international = n;
            if (n > 13) mark(c, QStringLiteral("jeu international %1 inconnu").arg(n));
            return;
        case '{':
            style_.upsideDown = n & 1;
            return;
        case 'V':
            if (digitParam(n) > 2) return mark(c, QStringLiteral("rotation hors plage"));
            style_.rotated = digitParam(n) != 0;
            return;
        case '4':
            style_.italic = n & 1;
            return;
        case ' ':
            rightSpacing_ = n;
            return;
        case '2':
            lineSpacing_ = defaultLineSpacing;
            return;
        case '3':
            lineSpacing_ = dotsY(n);
            return;
        case 'a':
            if (digitParam(n) > 2) return mark(c, QStringLiteral("justification hors plage"));
            justification_ = digitParam(n);
            return;
        case 'd':
            if (pageMode_) return pageLineDone(std::min(n * lineSpacing_, maxLength));
            return printLine(std::min(n * lineSpacing_, maxLength));
        case 'J':
            if (pageMode_) return pageLineDone(dotsY(n));
            return printLine(-2 - dotsY(n));
        case '$':
            line_.moveTo(dotsX(word(c, 2)));
            return;
        case '\\':
            line_.moveTo(line_.x() + dotsX(qint16(word(c, 2))));
            return;
        case 'D':
            tabs_.clear();
            for (qsizetype i = 2; i < c.size() && at(c, i); ++i)
                tabs_ << at(c, i) * (style_.cellWidth() + rightSpacing_);
            return;
        case '*':
            return bitImage(c);
        case 'p': {
            const int m = digitParam(n);
            if (m > 1) return mark(c, QStringLiteral("broche de tiroir inconnue"));
            const int on = at(c, 3) * 2;
            return pulse(m == 0 ? 2 : 5, on, std::max(at(c, 4) * 2, on), c);
        }
        case 'i':
        case 'm':
            return cut(cmd == 'm', 0, c);
        case 'c':
            if (at(c, 2) == '0') return selectPaper(at(c, 3));
            return mark(c, QStringLiteral("réglage du papier, sans effet sur l'impression"));
        case 'L':
            return enterPageMode();
        case 'S':
            if (pageMode_) {
                addBlock(Note{QStringLiteral("page effacée par ESC S sans avoir été imprimée")});
                leavePageMode();
            }
            return;
        case 'T':
            return setDirection(c);
        case 'W':
            if (pageMode_) setPageArea(c);
            return;
        case FF:
            if (pageMode_) printPage(QStringLiteral("ESC FF"), true);
            return;
        default:
            return mark(c, escFixedLength(cmd) || cmd == '&' ? QStringLiteral("commande non rendue")
                                                             : QStringLiteral("commande inconnue"));
    }
}

void Decoder::groupSeparator(QByteArrayView c) {
    if (pictureCommand(c) || requestCommand(c)) return;
    if (c.size() < 2) return;
    const unsigned char cmd = at(c, 1);
    if (cmd == '(' && at(c, 2) == 'k') return symbolFunction(c);
    const int n = c.size() > 2 ? at(c, 2) : 0;
    switch (cmd) {
        case '!': {
            const int w = (n >> 4) + 1, h = (n & 15) + 1;
            if (w > 8 || h > 8) return mark(c, QStringLiteral("taille de caractère hors plage"));
            style_.widthScale = w;
            style_.heightScale = h;
            return;
        }
        case 'B':
            style_.reverse = n & 1;
            return;
        case 'H':
            if (digitParam(n) > 3) return mark(c, QStringLiteral("position du texte hors plage"));
            hriPosition_ = digitParam(n);
            return;
        case 'f':
            hriFontB_ = digitParam(n) == 1;
            return;
        case 'h':
            if (n == 0) return mark(c, QStringLiteral("hauteur de code-barres nulle"));
            barHeight_ = n;
            return;
        case 'w':
            if (n < 1 || n > 6) return mark(c, QStringLiteral("largeur de module hors plage"));
            barModule_ = n;
            return;
        case 'k': {
            const int m = at(c, 2);
            if (m <= 6) {
                const QByteArrayView data = c.sliced(3, c.size() - 3);
                if (data.isEmpty() || data.back() != 0)
                    return mark(c.first(3), QStringLiteral("code-barres sans NUL final"));
                return barcode(m, data.chopped(1).toByteArray());
            }
            if (m >= 65 && m <= 79) return barcode(m, c.sliced(4).toByteArray());
            return mark(c, QStringLiteral("type de code-barres inconnu"));
        }
        case 'V': {
            const int m = at(c, 2);
            if (m == 0 || m == 48 || m == 1 || m == 49) return cut(m & 1, 0, c);
            if (m == 65 || m == 66) return cut(m == 66, dotsY(at(c, 3)), c);
            return mark(c, QStringLiteral("mode de coupe non rendu"));
        }
        case 'P':
            unitX_ = n ? n : dotsPerInch;
            unitY_ = at(c, 3) ? at(c, 3) : dotsPerInch;
            return;
        case 'L':
            if (!line_.empty()) return;
            leftMargin_ = std::min(dotsX(word(c, 2)), printableWidth() - 12);
            line_.start(leftMargin_, pageLineLength());
            return;
        case 'W':
            if (!line_.empty()) return;
            areaWidth_ = dotsX(word(c, 2));
            line_.start(leftMargin_, pageLineLength());
            return;
        case '$':
            if (pageMode_) {
                pageLineDone(0);
                pageV_ = std::min(dotsY(word(c, 2)), page_.height);
            }
            return;
        case '\\':
            if (pageMode_) {
                pageLineDone(0);
                pageV_ = std::clamp(pageV_ + dotsY(qint16(word(c, 2))), 0, page_.height);
            }
            return;
        default:
            return mark(c,
                        gsFixedLength(cmd) || cmd == '(' || cmd == 'v' || cmd == '*' || cmd == '8'
                            ? QStringLiteral("commande non rendue")
                            : QStringLiteral("commande inconnue"));
    }
}

void Decoder::fileSeparator(QByteArrayView c) {
    if (pictureCommand(c) || kanjiCommand(c)) return;
    mark(c, QStringLiteral("commande FS non rendue"));
}

void Decoder::realTime(QByteArrayView c) {
    if (c.size() == 1) return mark(c, QStringLiteral("DLE seul, ignoré"));
    if (requestCommand(c)) return;
    const unsigned char cmd = at(c, 1);
    if (cmd == 0x14 && c.size() == 5 && at(c, 2) == 1) {
        const int t = std::clamp(int(at(c, 4)), 1, 8) * 100;
        return pulse(at(c, 3) == 0 ? 2 : 5, t, t, c);
    }
    mark(c, cmd == 0x14 ? QStringLiteral("commande en temps réel non rendue")
                        : QStringLiteral("demande d'état : le ticket n'en montre rien"));
}

// ---------------------------------------------------------------- layout

Sheet& Decoder::sheet() {
    int& index = slipSelected_ ? slipSheet_ : rollSheet_;
    if (index < 0) {
        Sheet s;
        if (slipSelected_) {
            s.paper = Sheet::Paper::Slip;
            s.paperWidth = s.printableWidth = 640;
            s.leftMargin = 0;
        } else if (paperMillimetres_ == 58) {
            s.paperWidth = 464;
            s.printableWidth = 384;
            s.leftMargin = 40;
        }
        doc_.sheets.push_back(std::move(s));
        index = int(doc_.sheets.size()) - 1;
    }
    return doc_.sheets[size_t(index)];
}

void Decoder::addBlock(Block block) {
    sheet().blocks.push_back(std::move(block));
}

int Decoder::printableWidth() const {
    return slipSelected_ ? 640 : paperMillimetres_ == 58 ? 384 : 576;
}

int Decoder::pageLineLength() const {
    if (pageMode_) return direction_ % 2 == 0 ? page_.width : page_.height;
    const int room = printableWidth() - leftMargin_;
    return areaWidth_ > 0 ? std::min(areaWidth_, room) : room;
}

bool Decoder::startOwnLine(const QString& pageModeNote) {
    if (pageMode_) {
        addBlock(Note{pageModeNote});
        return false;
    }
    if (!line_.empty()) printLine();
    return true;
}

int Decoder::justifiedX(int width) const {
    const int free = pageLineLength() - width;
    return leftMargin_ + (justification_ == 1 ? free / 2 : justification_ == 2 ? free : 0);
}

// advance: the line spacing when -1, n dots fed whatever the line when
// below -1 (as -2 - n), else at least the line's height.
void Decoder::printLine(int advance) {
    const bool exact = advance < -1;
    const int feed = advance == -1 ? lineSpacing_ : exact ? -2 - advance : advance;
    addBlock(line_.take(justification_, feed, !exact));
    line_.start(leftMargin_, pageLineLength());
}

void Decoder::mark(QByteArrayView bytes, const QString& why) {
    line_.addMarker(bytes, why);
}

void Decoder::cut(bool partial, int feed, QByteArrayView bytes) {
    if (pageMode_ || slipSelected_) return mark(bytes, QStringLiteral("coupe impossible ici"));
    if (!line_.empty()) printLine();
    addBlock(Cut{partial, feed, bytes.toByteArray()});
    Sheet& s = sheet();
    s.finished = true;
    s.end = (partial ? QStringLiteral("coupe partielle (") : QStringLiteral("coupe totale (")) +
            hexOf(bytes) + u')';
    rollSheet_ = -1;
}

void Decoder::pulse(int pin, int onMs, int offMs, QByteArrayView bytes) {
    addBlock(Pulse{pin, onMs, offMs, bytes.toByteArray()});
}

void Decoder::bitImage(QByteArrayView c) {
    const int m = at(c, 2);
    if (m != 0 && m != 1 && m != 32 && m != 33)
        return mark(c, QStringLiteral("mode d'image inconnu"));
    BitImage image;
    image.mode = m;
    image.columns = word(c, 3);
    image.dotsPerColumn = m >= 32 ? 24 : 8;
    // Single density doubles each dot across; 8-dot images triple it down.
    image.scaleX = m == 0 || m == 32 ? 2 : 1;
    image.scaleY = m >= 32 ? 1 : 3;
    image.data = c.sliced(5).toByteArray();
    line_.addImage(std::move(image));
}

void Decoder::selectPaper(int n) {
    const bool slip = n & 0x2C;  // slip face, validation, slip back
    if (slip == slipSelected_) return;
    if (!line_.empty()) printLine();
    slipSelected_ = slip;
    line_.start(leftMargin_, pageLineLength());
}

void Decoder::ejectSlip(QByteArrayView bytes) {
    if (!line_.empty()) printLine();
    Sheet& s = sheet();
    s.finished = true;
    s.end = QStringLiteral("feuille éjectée (") + hexOf(bytes) + u')';
    slipSheet_ = -1;
}

// ---------------------------------------------------------------- page mode

void Decoder::enterPageMode() {
    if (pageMode_) return;
    if (!line_.empty()) printLine();
    pageMode_ = true;
    page_ = Page{};
    page_.width = printableWidth();
    page_.height = defaultPageHeight;
    startPageLine();
}

void Decoder::leavePageMode() {
    pageMode_ = false;
    page_ = Page{};
    line_.start(leftMargin_, pageLineLength());
}

void Decoder::startPageLine() {
    pageV_ = 0;
    line_.start(0, pageLineLength());
}

void Decoder::setPageArea(QByteArrayView c) {
    const int x = dotsX(word(c, 2)), y = dotsY(word(c, 4));
    const int width = dotsX(word(c, 6)), height = dotsY(word(c, 8));
    if (width == 0 || height == 0) return mark(c, QStringLiteral("zone de page vide, ignorée"));
    const int printable = printableWidth();
    page_.x = std::min(x, printable - 1);
    page_.y = y;
    page_.width = std::min(width, printable - page_.x);
    page_.height = height;
    pageLineDone(0);
    startPageLine();
}

void Decoder::setDirection(QByteArrayView c) {
    const int d = digitParam(at(c, 2));
    if (d > 3) return mark(c, QStringLiteral("sens d'impression hors plage"));
    if (!pageMode_) {
        direction_ = d;
        return;
    }
    pageLineDone(0);
    direction_ = d;
    startPageLine();
}

// The line in the page is done: kept where it stands, and the next one
// starts advance dots further (0 for the same place: CR, a move).
void Decoder::pageLineDone(int advance) {
    const int v = pageV_;
    if (!line_.empty() || advance > 0) {
        Line line = line_.take(justification_, advance, advance > 0);
        pageV_ = v + (advance > 0 ? line.advance : 0);
        if (!line.items.empty()) page_.lines.push_back(PageLine{direction_, v, std::move(line)});
    }
    line_.start(0, pageLineLength());
}

void Decoder::printPage(const QString& end, bool keep) {
    pageLineDone(0);
    Page printed = page_;
    printed.unitX = unitX_;
    printed.unitY = unitY_;
    printed.end = end;
    addBlock(std::move(printed));
    if (!keep) leavePageMode();
}

}  // namespace escpos
