#include "escpos/barcodes.h"

#include <QStringList>
#include <algorithm>
#include <cstring>

namespace escpos {

namespace {

// EAN and UPC: the odd-parity (L) widths of each digit, space first. The
// even-parity (G) code is the same widths reversed; the right-hand (R) code
// the L widths with bar first.
const char* const eanL[10] = {"3211", "2221", "2122", "1411", "1132",
                              "1231", "1114", "1312", "1213", "3112"};
// EAN-13: the parities of the left half told by the first digit.
const char* const ean13Parity[10] = {"LLLLLL", "LLGLGG", "LLGGLG", "LLGGGL", "LGLLGG",
                                     "LGGLLG", "LGGGLL", "LGLGLG", "LGLGGL", "LGGLGL"};
// UPC-E (number system 0): the parities of the six digits told by the check digit.
const char* const upcEParity[10] = {"GGGLLL", "GGLGLL", "GGLLGL", "GGLLLG", "GLGGLL",
                                    "GLLGGL", "GLLLGG", "GLGLGL", "GLGLLG", "GLLGLG"};

QString eanDigit(int digit, QChar parity) {
    QString widths = QString::fromLatin1(eanL[digit]);
    if (parity == u'G') std::reverse(widths.begin(), widths.end());
    return widths;
}

int eanCheck(const QByteArray& digits) {
    // Weights 3 and 1 from the right-most digit leftwards.
    int sum = 0;
    for (qsizetype i = 0; i < digits.size(); ++i) {
        const int d = digits.at(digits.size() - 1 - i) - '0';
        sum += d * (i % 2 == 0 ? 3 : 1);
    }
    return (10 - sum % 10) % 10;
}

bool allDigits(const QByteArray& data) {
    return !data.isEmpty() &&
           std::all_of(data.begin(), data.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// Digits of a fixed length, with or without their check digit; the full
// digits when the data is right, else the error.
QString checkedDigits(const QByteArray& data, int length, QByteArray& full) {
    if (!allDigits(data)) return QStringLiteral("des chiffres seulement");
    if (data.size() != length - 1 && data.size() != length)
        return QStringLiteral("%1 ou %2 chiffres, pas %3")
            .arg(length - 1)
            .arg(length)
            .arg(data.size());
    const QByteArray body = data.left(length - 1);
    const char check = char('0' + eanCheck(body));
    if (data.size() == length && data.back() != check)
        return QStringLiteral("le chiffre de contrôle devrait être %1").arg(QChar(check));
    full = body + check;
    return {};
}

QString eanPattern(const QByteArray& left, const QString& parities, const QByteArray& right) {
    QString p = QStringLiteral("111");
    for (qsizetype i = 0; i < left.size(); ++i) p += eanDigit(left.at(i) - '0', parities.at(i));
    p += QStringLiteral("11111");
    for (const char c : right) p += eanDigit(c - '0', u'L');
    return p + QStringLiteral("111");
}

void ean13(Barcode& b, const QByteArray& data) {
    QByteArray d;
    b.error = checkedDigits(data, 13, d);
    if (!b.error.isEmpty()) return;
    b.pattern = eanPattern(d.mid(1, 6), QString::fromLatin1(ean13Parity[d.at(0) - '0']), d.mid(7));
    b.hri = QString::fromLatin1(d);
}

void upcA(Barcode& b, const QByteArray& data) {
    QByteArray d;
    b.error = checkedDigits(data, 12, d);
    if (!b.error.isEmpty()) return;
    b.pattern = eanPattern(d.left(6), QStringLiteral("LLLLLL"), d.mid(6));
    b.hri = QString::fromLatin1(d);
}

void ean8(Barcode& b, const QByteArray& data) {
    QByteArray d;
    b.error = checkedDigits(data, 8, d);
    if (!b.error.isEmpty()) return;
    b.pattern = eanPattern(d.left(4), QStringLiteral("LLLL"), d.mid(4));
    b.hri = QString::fromLatin1(d);
}

// UPC-E's six digits expand to the UPC-A number whose check digit it carries.
QByteArray upcEExpanded(const QByteArray& six) {
    const char last = six.at(5);
    if (last <= '2') return "0" + six.left(2) + last + "0000" + six.mid(2, 3);
    if (last == '3') return "0" + six.left(3) + "00000" + six.mid(3, 2);
    if (last == '4') return "0" + six.left(4) + "00000" + six.mid(4, 1);
    return "0" + six.left(5) + "0000" + last;
}

void upcE(Barcode& b, const QByteArray& data) {
    if (!allDigits(data)) {
        b.error = QStringLiteral("des chiffres seulement");
        return;
    }
    // Six digits alone, or behind the number system 0, or with the check digit too.
    QByteArray six;
    if (data.size() == 6)
        six = data;
    else if ((data.size() == 7 || data.size() == 8) && data.at(0) == '0')
        six = data.mid(1, 6);
    else {
        b.error = QStringLiteral("6, 7 ou 8 chiffres commençant par 0");
        return;
    }
    const char check = char('0' + eanCheck(upcEExpanded(six)));
    if (data.size() == 8 && data.back() != check) {
        b.error = QStringLiteral("le chiffre de contrôle devrait être %1").arg(QChar(check));
        return;
    }
    const QString parities = QString::fromLatin1(upcEParity[check - '0']);
    b.pattern = QStringLiteral("111");
    for (int i = 0; i < 6; ++i) b.pattern += eanDigit(six.at(i) - '0', parities.at(i));
    b.pattern += QStringLiteral("111111");
    b.hri = QString::fromLatin1("0" + six + check);
}

// Code 39: nine elements a character, three of them wide, and a narrow gap.
constexpr char code39Chars[] = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-. $/+%*";
const char* const code39Widths[] = {
    "nnnwwnwnn", "wnnwnnnnw", "nnwwnnnnw", "wnwwnnnnn", "nnnwwnnnw", "wnnwwnnnn", "nnwwwnnnn",
    "nnnwnnwnw", "wnnwnnwnn", "nnwwnnwnn", "wnnnnwnnw", "nnwnnwnnw", "wnwnnwnnn", "nnnnwwnnw",
    "wnnnwwnnn", "nnwnwwnnn", "nnnnnwwnw", "wnnnnwwnn", "nnwnnwwnn", "nnnnwwwnn", "wnnnnnnww",
    "nnwnnnnww", "wnwnnnnwn", "nnnnwnnww", "wnnnwnnwn", "nnwnwnnwn", "nnnnnnwww", "wnnnnnwwn",
    "nnwnnnwwn", "nnnnwnwwn", "wwnnnnnnw", "nwwnnnnnw", "wwwnnnnnn", "nwnnwnnnw", "wwnnwnnnn",
    "nwwnwnnnn", "nwnnnnwnw", "wwnnnnwnn", "nwwnnnwnn", "nwnwnwnnn", "nwnwnnnwn", "nwnnnwnwn",
    "nnnwnwnwn", "nwnnwnwnn"};

void code39(Barcode& b, const QByteArray& data) {
    QByteArray text = data;
    // The start and stop character is added when the data does not carry it.
    if (!text.startsWith('*')) text.prepend('*');
    if (text.size() < 2 || !text.endsWith('*')) text.append('*');
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char* at = text.at(i) ? std::strchr(code39Chars, text.at(i)) : nullptr;
        const bool inner = i > 0 && i < text.size() - 1;
        if (!at || (inner && *at == '*')) {
            b.error = QStringLiteral("caractère %1 hors de CODE39")
                          .arg(QString::number(uchar(text.at(i)), 16));
            b.pattern.clear();
            return;
        }
        if (i > 0) b.pattern += u'n';
        b.pattern += QString::fromLatin1(code39Widths[at - code39Chars]);
    }
    b.hri = QString::fromLatin1(text);
}

// Interleaved 2 of 5: digits in pairs, the first of a pair in the bars.
const char* const itfWidths[10] = {"nnwwn", "wnnnw", "nwnnw", "wwnnn", "nnwnw",
                                   "wnwnn", "nwwnn", "nnnww", "wnnwn", "nwnwn"};

void itf(Barcode& b, const QByteArray& data) {
    if (!allDigits(data) || data.size() % 2) {
        b.error = QStringLiteral("un nombre pair de chiffres");
        return;
    }
    b.pattern = QStringLiteral("nnnn");
    for (qsizetype i = 0; i < data.size(); i += 2) {
        const char* bars = itfWidths[data.at(i) - '0'];
        const char* spaces = itfWidths[data.at(i + 1) - '0'];
        for (int k = 0; k < 5; ++k) b.pattern += QChar(bars[k]) + QString(QChar(spaces[k]));
    }
    b.pattern += QStringLiteral("wnn");
    b.hri = QString::fromLatin1(data);
}

constexpr char codabarChars[] = "0123456789-$:/.+ABCD";
const char* const codabarWidths[] = {"nnnnnww", "nnnnwwn", "nnnwnnw", "wwnnnnn", "nnwnnwn",
                                     "wnnnnwn", "nwnnnnw", "nwnnwnn", "nwwnnnn", "wnnwnnn",
                                     "nnnwwnn", "nnwwnnn", "wnnnwnw", "wnwnnnw", "wnwnwnn",
                                     "nnwnwnw", "nnwwnwn", "nwnwnnw", "nnnwnww", "nnnwwwn"};

void codabar(Barcode& b, const QByteArray& data) {
    const QByteArray text = data.toUpper();
    auto isStartStop = [](char c) { return c >= 'A' && c <= 'D'; };
    if (text.size() < 2 || !isStartStop(text.front()) || !isStartStop(text.back())) {
        b.error = QStringLiteral("commence et finit par A, B, C ou D");
        return;
    }
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char* at = text.at(i) ? std::strchr(codabarChars, text.at(i)) : nullptr;
        if (!at || (i > 0 && i < text.size() - 1 && isStartStop(text.at(i)))) {
            b.error = QStringLiteral("caractère %1 hors de CODABAR")
                          .arg(QString::number(uchar(text.at(i)), 16));
            b.pattern.clear();
            return;
        }
        if (i > 0) b.pattern += u'n';
        b.pattern += QString::fromLatin1(codabarWidths[at - codabarChars]);
    }
    b.hri = QString::fromLatin1(data);
}

// Code 93: 43 characters, four shifts that reach the rest of ASCII, two
// check characters.
constexpr char code93Chars[] = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-. $/+%";
enum { shiftDollar = 43, shiftPercent = 44, shiftSlash = 45, shiftPlus = 46 };
const char* const code93Widths[47] = {
    "131112", "111213", "111312", "111411", "121113", "121212", "121311", "111114",
    "131211", "141111", "211113", "211212", "211311", "221112", "221211", "231111",
    "112113", "112212", "112311", "122112", "132111", "111123", "111222", "111321",
    "121122", "131121", "212112", "212211", "211122", "211221", "221121", "222111",
    "112122", "112221", "122121", "123111", "121131", "311112", "311211", "321111",
    "112131", "113121", "211131", "121221", "312111", "311121", "122211"};

// The values an ASCII character takes in Code 93: itself, or a shift and a letter.
QList<int> code93Values(unsigned char c) {
    auto letter = [](char l) { return 10 + (l - 'A'); };
    if (const char* at = c ? std::strchr(code93Chars, c) : nullptr) return {int(at - code93Chars)};
    if (c == 0) return {shiftPercent, letter('U')};
    if (c <= 0x1A) return {shiftDollar, letter(char('A' + c - 1))};
    if (c <= 0x1F) return {shiftPercent, letter(char('A' + c - 0x1B))};
    if (c >= '!' && c <= '/') return {shiftSlash, letter(char('A' + c - '!'))};
    if (c == ':') return {shiftSlash, letter('Z')};
    if (c >= ';' && c <= '?') return {shiftPercent, letter(char('F' + c - ';'))};
    if (c == '@') return {shiftPercent, letter('V')};
    if (c >= '[' && c <= '_') return {shiftPercent, letter(char('K' + c - '['))};
    if (c == '`') return {shiftPercent, letter('W')};
    if (c >= 'a' && c <= 'z') return {shiftPlus, letter(char('A' + c - 'a'))};
    return {shiftPercent, letter(char('P' + c - '{'))};  // { | } ~ DEL
}

int code93Check(const QList<int>& values, int maxWeight) {
    int sum = 0;
    for (qsizetype i = 0; i < values.size(); ++i)
        sum += values.at(values.size() - 1 - i) * int(i % maxWeight + 1);
    return sum % 47;
}

void code93(Barcode& b, const QByteArray& data) {
    QList<int> values;
    for (const char c : data) {
        if (uchar(c) > 127) {
            b.error =
                QStringLiteral("caractère %1 hors de l'ASCII").arg(QString::number(uchar(c), 16));
            return;
        }
        values += code93Values(uchar(c));
    }
    values << code93Check(values, 20);
    values << code93Check(values, 15);
    b.pattern = QStringLiteral("111141");
    for (const int v : values) b.pattern += QString::fromLatin1(code93Widths[v]);
    b.pattern += QStringLiteral("1111411");
    b.hri = QString::fromLatin1(data);
}

// Code 128: values 0 to 102 in three code sets, starts 103 to 105, stop 106.
const char* const code128Widths[107] = {
    "212222", "222122", "222221", "121223", "121322", "131222", "122213", "122312", "132212",
    "221213", "221312", "231212", "112232", "122132", "122231", "113222", "123122", "123221",
    "223211", "221132", "221231", "213212", "223112", "312131", "311222", "321122", "321221",
    "312212", "322112", "322211", "212123", "212321", "232121", "111323", "131123", "131321",
    "112313", "132113", "132311", "211313", "231113", "231311", "112133", "112331", "132131",
    "113123", "113321", "133121", "313121", "211331", "231131", "213113", "213311", "213131",
    "311123", "311321", "331121", "312113", "312311", "332111", "314111", "221411", "431111",
    "111224", "111422", "121124", "121421", "141122", "141221", "112214", "112412", "122114",
    "122411", "142112", "142211", "241211", "221114", "413111", "241112", "134111", "111242",
    "121142", "121241", "114212", "124112", "124211", "411212", "421112", "421211", "212141",
    "214121", "412121", "111143", "111341", "131141", "114113", "114311", "411113", "411311",
    "113141", "114131", "311141", "411131", "211412", "211214", "211232", "2331112"};

// The data names its code set first ("{A", "{B", "{C"); "{S" shifts one
// character, "{1" to "{4" are the function characters, "{{" is "{" itself.
void code128(Barcode& b, const QByteArray& data) {
    auto fail = [&](const QString& why) {
        b.error = why;
        b.pattern.clear();
        b.hri.clear();
    };
    if (data.size() < 2 || data.at(0) != '{' || data.at(1) < 'A' || data.at(1) > 'C')
        return fail(QStringLiteral("les données commencent par {A, {B ou {C"));
    char set = data.at(1);
    QList<int> values{103 + (set - 'A')};
    bool shift = false;
    auto valueIn = [](char codeSet, unsigned char c) -> int {
        if (codeSet == 'A') return c < 32 ? c + 64 : (c < 96 ? c - 32 : -1);
        return c >= 32 && c < 128 ? c - 32 : -1;
    };
    for (qsizetype i = 2; i < data.size(); ++i) {
        const unsigned char c = uchar(data.at(i));
        if (c == '{' && i + 1 < data.size() && data.at(i + 1) != '{') {
            const char code = data.at(++i);
            if (code >= 'A' && code <= 'C') {
                if (code != set) values << (code == 'A' ? 101 : code == 'B' ? 100 : 99);
                set = code;
            } else if (code == 'S' && set != 'C') {
                values << 98;
                shift = true;
            } else if (code == '1') {
                values << 102;
            } else if (code == '2' || code == '3') {
                if (set == 'C') return fail(QStringLiteral("{%1 hors du jeu C").arg(QChar(code)));
                values << (code == '2' ? 97 : 96);
            } else if (code == '4' && set != 'C') {
                values << (set == 'A' ? 101 : 100);
            } else {
                return fail(QStringLiteral("code {%1 inconnu").arg(QChar(code)));
            }
            continue;
        }
        if (c == '{') ++i;  // "{{"
        if (set == 'C' && !shift) {
            if (c > 99) return fail(QStringLiteral("jeu C : un octet de 0 à 99"));
            values << c;
            b.hri += QStringLiteral("%1").arg(c, 2, 10, QLatin1Char('0'));
            continue;
        }
        const char current = shift ? (set == 'A' ? 'B' : 'A') : set;
        shift = false;
        const int v = valueIn(current, c);
        if (v < 0)
            return fail(QStringLiteral("caractère %1 hors du jeu %2")
                            .arg(QString::number(c, 16))
                            .arg(QChar(current)));
        values << v;
        b.hri += c >= 32 && c < 127 ? QChar(c) : QChar(u' ');
    }
    int sum = values.at(0);
    for (qsizetype i = 1; i < values.size(); ++i) sum += values.at(i) * int(i);
    values << sum % 103 << 106;
    for (const int v : values) b.pattern += QString::fromLatin1(code128Widths[v]);
}

}  // namespace

int elementDots(QChar element, int module) {
    static constexpr int wide[7] = {0, 3, 5, 8, 10, 13, 15};
    if (element == u'n') return module;
    if (element == u'w') return wide[qBound(1, module, 6)];
    return (element.unicode() - '0') * module;
}

int patternDots(const QString& pattern, int module) {
    int dots = 0;
    for (const QChar e : pattern) dots += elementDots(e, module);
    return dots;
}

Barcode encodeBarcode(int system, const QByteArray& data) {
    static const char* const names[] = {"UPC-A", "UPC-E",   "EAN13",  "EAN8",   "CODE39",
                                        "ITF",   "CODABAR", "CODE93", "CODE128"};
    Barcode b;
    b.system = system;
    b.data = data;
    const int kind = system <= 6 ? system : system - 65;
    if (kind < 0 || kind > 8 || (system <= 6 && kind > 6)) {
        b.symbology = QStringLiteral("m=%1").arg(system);
        b.error = QStringLiteral("type de code-barres inconnu");
        return b;
    }
    b.symbology = QString::fromLatin1(names[kind]);
    void (*const encoders[])(Barcode&, const QByteArray&) = {upcA, upcE,    ean13,  ean8,   code39,
                                                             itf,  codabar, code93, code128};
    encoders[kind](b, data);
    return b;
}

}  // namespace escpos
