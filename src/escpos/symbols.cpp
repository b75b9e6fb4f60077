#include "escpos/symbols.h"

#include <zint.h>

#include <QStringList>
#include <algorithm>
#include <cmath>
#include <memory>

namespace escpos {

namespace {

// No symbol taller than a metre of paper, nor wider than the widest paper.
constexpr int maxHeightDots = 8000;
constexpr int maxWidthDots = 640;

// How the rows of libzint's modules become dots.
enum class Rows {
    Linear,   // one row of bars, as tall as asked
    Matrix,   // square modules
    Stacked,  // rows of bars, each its height in modules
    Hexagons  // MaxiCode: libzint's own picture, scaled
};

struct ZintRequest {
    int symbology = BARCODE_CODE128;
    QByteArray data;
    int inputMode = DATA_MODE;
    int option1 = -1, option2 = 0, option3 = 0;
    QByteArray primary;  // the linear part of a composite
    Rows rows = Rows::Linear;
    int module = 3;          // dots a module across
    int rowDots = 162;       // Linear: the bars; Stacked: dots a module of height
    int fixedRowDots = 0;    // Stacked: every row this tall (PDF417), 0 for libzint's heights
    bool twoWidths = false;  // narrow and wide elements (CODE39, ITF, CODABAR)
};

struct Drawn {
    QImage picture;
    QString hri;
    QString error;
};

struct SymbolDeleter {
    void operator()(zint_symbol* s) const { ZBarcode_Delete(s); }
};

bool moduleSet(const zint_symbol& s, int row, int column) {
    return (s.encoded_data[row][column >> 3] >> (column & 7)) & 1;
}

QImage blankPicture(int width, int height) {
    QImage picture(width, height, QImage::Format_Grayscale8);
    picture.fill(255);
    return picture;
}

QString tooLarge(qint64 width, qint64 height) {
    if (width > maxWidthDots)
        return QStringLiteral("plus large que le papier (%1 points)").arg(width);
    return QStringLiteral("plus long qu'un mètre de papier (%1 points)").arg(height);
}

// One row of modules as dots across, 1 for black. The two-width codes take
// the printer's own wide element, about two and a half narrow ones, where
// libzint draws two or three modules.
QByteArray rowDots(const zint_symbol& s, int row, const ZintRequest& r) {
    static constexpr int wide[7] = {0, 3, 5, 8, 10, 13, 15};
    QByteArray dots;
    for (int column = 0; column < s.width && dots.size() <= maxWidthDots;) {
        const bool black = moduleSet(s, row, column);
        int run = 1;
        while (column + run < s.width && moduleSet(s, row, column + run) == black) ++run;
        column += run;
        if (!r.twoWidths) {
            dots.append(qsizetype(run) * r.module, char(black));
            continue;
        }
        // Runs longer than one module are wide elements, one after the other.
        const int wideRun = r.symbology == BARCODE_C25INTER ? 3 : 2;
        for (int left = run; left > 0;) {
            const bool isWide = left >= wideRun;
            dots.append(isWide ? wide[std::clamp(r.module, 1, 6)] : r.module, char(black));
            left -= isWide ? wideRun : 1;
        }
    }
    return dots;
}

// libzint's modules drawn at the printer's dots.
Drawn modulesPicture(const zint_symbol& s, const ZintRequest& r) {
    // Rows of no height of their own (the linear part of a composite) share
    // what the symbol's height leaves.
    float fixed = 0;
    int unsized = 0;
    for (int row = 0; row < s.rows; ++row) {
        fixed += s.row_height[row];
        unsized += s.row_height[row] <= 0;
    }
    const float shared = unsized ? std::max(10.0f, (s.height - fixed) / float(unsized)) : 0;
    std::vector<int> heights(size_t(s.rows));
    for (int row = 0; row < s.rows; ++row) {
        switch (r.rows) {
            case Rows::Linear:
                heights[size_t(row)] = s.rows == 1 ? r.rowDots : r.rowDots / s.rows;
                break;
            case Rows::Matrix:
                heights[size_t(row)] = r.module;
                break;
            default:
                heights[size_t(row)] =
                    r.fixedRowDots
                        ? r.fixedRowDots
                        : std::max(
                              1,
                              int(std::lround((s.row_height[row] > 0 ? s.row_height[row] : shared) *
                                              float(r.rowDots))));
        }
    }
    std::vector<QByteArray> across(size_t(s.rows));
    for (int row = 0; row < s.rows; ++row) across[size_t(row)] = rowDots(s, row, r);
    const qint64 width = across.empty() ? 0 : across.front().size();
    qint64 height = 0;
    for (const int h : heights) height += h;
    if (width > maxWidthDots || height > maxHeightDots) return {{}, {}, tooLarge(width, height)};
    QImage picture = blankPicture(int(width), int(height));
    int top = 0;
    for (int row = 0; row < s.rows; ++row) {
        const QByteArray& dots = across[size_t(row)];
        for (int y = 0; y < heights[size_t(row)]; ++y) {
            uchar* line = picture.scanLine(top + y);
            for (qsizetype x = 0; x < std::min<qsizetype>(dots.size(), width); ++x)
                if (dots.at(x)) line[x] = 0;
        }
        top += heights[size_t(row)];
    }
    return {picture, {}, {}};
}

// MaxiCode's hexagons come from libzint's own picture, about an inch across.
Drawn hexagonPicture(zint_symbol& s) {
    s.scale = 0.7f;
    if (ZBarcode_Buffer(&s, 0) >= ZINT_ERROR)
        return {{}, {}, QStringLiteral("libzint : ") + QString::fromLatin1(s.errtxt)};
    QImage picture = blankPicture(s.bitmap_width, s.bitmap_height);
    for (int y = 0; y < s.bitmap_height; ++y) {
        const uchar* rgb = s.bitmap + qsizetype(y) * s.bitmap_width * 3;
        uchar* line = picture.scanLine(y);
        for (int x = 0; x < s.bitmap_width; ++x) line[x] = rgb[x * 3] < 128 ? 0 : 255;
    }
    return {picture, {}, {}};
}

Drawn draw(const ZintRequest& r) {
    if (r.data.isEmpty()) return {{}, {}, QStringLiteral("aucune donnée")};
    const std::unique_ptr<zint_symbol, SymbolDeleter> symbol(ZBarcode_Create());
    zint_symbol& s = *symbol;
    s.symbology = r.symbology;
    s.input_mode = r.inputMode;
    s.option_1 = r.option1;
    s.option_2 = r.option2;
    s.option_3 = r.option3;
    s.show_hrt = 1;
    if (!r.primary.isEmpty()) {
        if (r.primary.size() >= qsizetype(sizeof s.primary))
            return {{}, {}, QStringLiteral("partie linéaire trop longue")};
        std::copy_n(r.primary.constData(), r.primary.size(), s.primary);
    }
    const int status = ZBarcode_Encode(
        &s, reinterpret_cast<const unsigned char*>(r.data.constData()), int(r.data.size()));
    if (status >= ZINT_ERROR)
        return {{}, {}, QStringLiteral("libzint : ") + QString::fromLatin1(s.errtxt)};
    Drawn drawn = r.rows == Rows::Hexagons ? hexagonPicture(s) : modulesPicture(s, r);
    drawn.hri = QString::fromUtf8(reinterpret_cast<const char*>(s.text));
    return drawn;
}

bool allDigits(const QByteArray& data) {
    return std::all_of(data.begin(), data.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// Digits of an application identifier, told by its first two.
int aiLength(int head) {
    if (head <= 22 || head == 37 || head >= 90) return 2;
    if ((head >= 31 && head <= 36) || head == 39 || head >= 70) return 4;
    return 3;
}

// The whole length, identifier included, of the identifiers of fixed length;
// 0 for the others, which end at FNC1 or with the data.
int aiFixedLength(int head) {
    switch (head) {
        case 0:
            return 20;
        case 1:
        case 2:
        case 3:
        case 41:
            return 16;
        case 4:
            return 18;
        case 20:
            return 4;
        default:
            if (head >= 11 && head <= 19) return 8;
            if (head >= 31 && head <= 36) return 10;
            return 0;
    }
}

// GS1 data as libzint takes it, identifiers in brackets. The printer takes
// them in parentheses, or bare: then it knows where each ends from its
// fixed length or from FNC1 ({1). Spaces are for the text only.
QByteArray gs1Data(const QByteArray& data) {
    QByteArray out = data;
    out.replace(' ', "");
    if (out.contains('(')) return out.replace("{1", "").replace('(', '[').replace(')', ']');
    QByteArray bracketed;
    qsizetype i = out.startsWith("{1") ? 2 : 0;
    while (i + 2 <= out.size()) {
        if (!allDigits(out.mid(i, 2))) return out;  // not GS1: libzint says why
        const int head = out.mid(i, 2).toInt();
        const qsizetype ai = aiLength(head), fixed = aiFixedLength(head);
        qsizetype end = fixed ? i + fixed : out.indexOf("{1", i);
        if (end < 0 || end > out.size()) end = out.size();
        bracketed += '[' + out.mid(i, ai) + ']' + out.mid(i + ai, end - i - ai);
        i = out.mid(end, 2) == "{1" ? end + 2 : end;
    }
    return bracketed + out.mid(i);
}

// CODE128 with its code-set prefixes ({A, {B, {C; {{ for a brace): the text
// libzint encodes with its own choice of sets. In set C each byte is a pair
// of digits.
QString code128Text(const QByteArray& data, QByteArray& out) {
    if (data.size() < 2 || data.at(0) != '{' || !QByteArray("ABC").contains(data.at(1)))
        return QStringLiteral("les données commencent par {A, {B ou {C");
    char set = 'B';
    for (qsizetype i = 0; i < data.size(); ++i) {
        const char c = data.at(i);
        if (c == '{' && i + 1 < data.size()) {
            const char next = data.at(++i);
            if (next == 'A' || next == 'B' || next == 'C')
                set = next;
            else if (next == '{')
                out += '{';
            // FNC1 to FNC4 and SHIFT change no character of the text.
            continue;
        }
        if (set != 'C') {
            out += c;
            continue;
        }
        const int pair = static_cast<unsigned char>(c);
        if (pair > 99) return QStringLiteral("octet %1 hors du jeu C").arg(pair);
        out += QByteArray::number(pair).rightJustified(2, '0');
    }
    return {};
}

struct Linear {
    const char* name;
    int symbology;
};

// GS k, m 65 to 79 (0 to 6 are 65 to 71 ended by NUL).
const Linear linears[] = {
    {"UPC-A", BARCODE_UPCA},
    {"UPC-E", BARCODE_UPCE},
    {"EAN13", BARCODE_EANX},
    {"EAN8", BARCODE_EANX},
    {"CODE39", BARCODE_CODE39},
    {"ITF", BARCODE_C25INTER},
    {"CODABAR", BARCODE_CODABAR},
    {"CODE93", BARCODE_CODE93},
    {"CODE128", BARCODE_CODE128},
    {"GS1-128", BARCODE_GS1_128},
    {"GS1 DataBar omnidirectionnel", BARCODE_DBAR_OMN},
    {"GS1 DataBar tronqué", BARCODE_DBAR_OMN},
    {"GS1 DataBar limité", BARCODE_DBAR_LTD},
    {"GS1 DataBar étendu", BARCODE_DBAR_EXP},
    {"CODE128 automatique", BARCODE_CODE128},
};

// Checks of the printer before any encoding; empty when the data is fit.
QString linearRequest(int m, const QByteArray& data, ZintRequest& r) {
    r.data = data;
    auto digits = [&](std::initializer_list<int> lengths) {
        if (!allDigits(data)) return QStringLiteral("des chiffres seulement");
        if (std::find(lengths.begin(), lengths.end(), data.size()) == lengths.end())
            return QStringLiteral("%1 chiffres : longueur refusée").arg(data.size());
        return QString();
    };
    switch (m) {
        case 65:
            return digits({11, 12});
        case 66:
            return digits({6, 7, 8});
        case 67:
            if (data.size() == 13) r.symbology = BARCODE_EANX_CHK;
            return digits({12, 13});
        case 68:
            if (data.size() == 8) r.symbology = BARCODE_EANX_CHK;
            return digits({7, 8});
        case 69:
            // The start and stop stars are the printer's; sent ones are dropped.
            if (r.data.startsWith('*')) r.data.remove(0, 1);
            if (r.data.endsWith('*')) r.data.chop(1);
            return {};
        case 70:
            if (!allDigits(data)) return QStringLiteral("des chiffres seulement");
            return data.size() % 2 ? QStringLiteral("un nombre pair de chiffres") : QString();
        case 73:
            r.data.clear();
            return code128Text(data, r.data);
        case 74:
        case 78:
            r.data = gs1Data(data);
            r.inputMode = GS1_MODE;
            if (m == 78) {
                r.rows = Rows::Stacked;
                r.fixedRowDots = r.module * 34;
            }
            return {};
        case 75:
        case 76:
        case 77:
            // Thirteen digits without the check digit; heights in modules are the symbology's.
            r.rows = Rows::Stacked;
            r.rowDots = r.module;
            r.fixedRowDots = r.module * (m == 75 ? 33 : m == 76 ? 13 : 10);
            return digits({13});
        default:
            return {};
    }
}

Barcode refused(Barcode b, const QString& why) {
    b.error = why;
    return b;
}

Barcode finished(Barcode b, Drawn drawn) {
    if (!drawn.error.isEmpty()) return refused(b, drawn.error);
    b.picture = std::move(drawn.picture);
    b.hri = drawn.hri;
    b.width = b.picture.width();
    return b;
}

QString levelName(int n) {
    return QString(QChar(u"LMQH"[std::clamp(n - 48, 0, 3)]));
}

}  // namespace

Barcode drawBarcode(int system, const QByteArray& data, int module, int height) {
    Barcode b;
    b.command = QStringLiteral("GS k");
    b.system = system;
    b.data = data;
    b.module = module;
    b.height = height;
    const int m = system <= 6 ? system + 65 : system;
    if (m < 65 || m > 79) {
        b.symbology = QStringLiteral("?");
        return refused(b, QStringLiteral("type de code-barres inconnu"));
    }
    const Linear& linear = linears[m - 65];
    b.symbology = QString::fromUtf8(linear.name);
    ZintRequest r;
    r.symbology = linear.symbology;
    r.module = module;
    r.rowDots = height;
    r.twoWidths = m == 69 || m == 70 || m == 71;
    if (const QString why = linearRequest(m, data, r); !why.isEmpty()) return refused(b, why);
    Barcode drawn = finished(b, draw(r));
    if (r.rows == Rows::Stacked) drawn.height = drawn.picture.height();
    return drawn;
}

Barcode drawSymbol(SymbolSettings::Kind kind, const SymbolSettings& s) {
    using K = SymbolSettings;
    Barcode b;
    b.command = QStringLiteral("GS ( k");
    b.system = 48 + kind;
    b.data = s.stored[size_t(kind)];
    ZintRequest r;
    r.data = b.data;
    r.rows = Rows::Matrix;
    switch (kind) {
        case K::Qr:
            b.symbology = s.qrModel == 51 ? QStringLiteral("QR micro") : QStringLiteral("QR");
            r.symbology = s.qrModel == 51 ? BARCODE_MICROQR : BARCODE_QRCODE;
            r.option1 = s.qrLevel - 47;
            r.module = s.qrModule;
            b.settings = QStringLiteral("modèle %1, module %2, correction %3")
                             .arg(s.qrModel - 48)
                             .arg(s.qrModule)
                             .arg(levelName(s.qrLevel));
            // Model 1 is long gone from readers: drawn as model 2.
            if (s.qrModel == 49) b.settings += QStringLiteral(" (dessiné en modèle 2)");
            break;
        case K::Pdf417:
            b.symbology =
                s.pdfTruncated ? QStringLiteral("PDF417 tronqué") : QStringLiteral("PDF417");
            r.symbology = s.pdfTruncated ? BARCODE_PDF417COMP : BARCODE_PDF417;
            r.option1 = s.pdfLevel;
            r.option2 = s.pdfColumns;
            r.option3 = s.pdfRows;
            r.rows = Rows::Stacked;
            r.module = s.pdfModule;
            r.fixedRowDots = s.pdfModule * s.pdfRowHeight;
            b.settings =
                QStringLiteral("colonnes %1, lignes %2, module %3, hauteur de ligne %4, %5")
                    .arg(s.pdfColumns)
                    .arg(s.pdfRows)
                    .arg(s.pdfModule)
                    .arg(s.pdfRowHeight)
                    .arg(s.pdfLevel >= 0 ? QStringLiteral("niveau %1").arg(s.pdfLevel)
                                         : QStringLiteral("correction %1 %").arg(s.pdfRatio * 10));
            break;
        case K::MaxiCode:
            b.symbology = QStringLiteral("MaxiCode");
            r.symbology = BARCODE_MAXICODE;
            r.option1 = s.maxiMode - 48;
            r.rows = Rows::Hexagons;
            b.settings = QStringLiteral("mode %1").arg(s.maxiMode - 48);
            if (r.option1 <= 3) {
                // The carrier's modes: postcode, country and class, separated
                // by GS, then the secondary message, after an optional header.
                QByteArray data = r.data, header;
                if (data.startsWith("[)>\x1e"
                                    "01\x1d") &&
                    data.size() >= 9) {
                    header = data.first(9);
                    data.remove(0, 9);
                }
                const QList<QByteArray> fields = data.split('\x1d');
                if (fields.size() < 3)
                    return refused(b, QStringLiteral("code postal, pays et classe attendus"));
                r.primary =
                    fields[0] + fields[1].rightJustified(3, '0') + fields[2].rightJustified(3, '0');
                r.data = header + fields.mid(3).join('\x1d');
                if (r.data.isEmpty()) r.data = " ";
            }
            break;
        case K::DataBar: {
            const int type = b.data.isEmpty() ? 0 : static_cast<unsigned char>(b.data.at(0));
            r.data = b.data.mid(1);
            r.rows = Rows::Stacked;
            r.module = r.rowDots = s.dataBarModule;
            b.settings = QStringLiteral("module %1").arg(s.dataBarModule);
            if (type == 72 || type == 73) {
                b.symbology = type == 72 ? QStringLiteral("GS1 DataBar empilé")
                                         : QStringLiteral("GS1 DataBar empilé omnidirectionnel");
                r.symbology = type == 72 ? BARCODE_DBAR_STK : BARCODE_DBAR_OMNSTK;
            } else if (type == 76) {
                b.symbology = QStringLiteral("GS1 DataBar étendu empilé");
                r.symbology = BARCODE_DBAR_EXPSTK;
                r.data = gs1Data(r.data);
                r.inputMode = GS1_MODE;
                // A pair of segments takes about 49 modules across.
                if (s.dataBarMaxWidth > 0)
                    r.option2 = std::clamp(s.dataBarMaxWidth / (49 * s.dataBarModule), 1, 11);
            } else {
                b.symbology = QStringLiteral("GS1 DataBar");
                return refused(b, QStringLiteral("type de GS1 DataBar %1 inconnu").arg(type));
            }
            break;
        }
        case K::Composite: {
            // The linear part: its type, then its data; the 2D part is GS1 data.
            static const int linearTypes[] = {
                BARCODE_EANX_CC,     BARCODE_EANX_CC,     BARCODE_UPCA_CC,
                BARCODE_UPCE_CC,     BARCODE_UPCE_CC,     BARCODE_DBAR_OMN_CC,
                BARCODE_DBAR_OMN_CC, BARCODE_DBAR_STK_CC, BARCODE_DBAR_OMNSTK_CC,
                BARCODE_DBAR_LTD_CC, BARCODE_DBAR_EXP_CC, BARCODE_DBAR_EXPSTK_CC,
                BARCODE_GS1_128_CC};
            b.symbology = QStringLiteral("composite GS1");
            const QByteArray& linear = s.compositeLinear;
            const int type = linear.isEmpty() ? 0 : static_cast<unsigned char>(linear.at(0));
            if (type < 65 || type > 77)
                return refused(b, QStringLiteral("partie linéaire absente ou inconnue"));
            r.symbology = linearTypes[type - 65];
            // EAN, UPC and the short DataBar kinds take bare digits.
            r.primary = type >= 75 ? gs1Data(linear.mid(1)) : linear.mid(1);
            r.data = gs1Data(b.data.mid(1));
            r.inputMode = GS1_MODE;
            r.rows = Rows::Stacked;
            r.module = r.rowDots = s.compositeModule;
            b.settings = QStringLiteral("partie linéaire \"%1\", module %2")
                             .arg(QString::fromLatin1(r.primary))
                             .arg(s.compositeModule);
            break;
        }
        case K::Aztec: {
            b.symbology = QStringLiteral("Aztec");
            r.symbology = BARCODE_AZTEC;
            const int c = s.aztecCorrection;
            r.option1 = c <= 16 ? 1 : c <= 29 ? 2 : c <= 43 ? 3 : 4;
            if (s.aztecLayers > 0) r.option2 = s.aztecCompact ? s.aztecLayers : s.aztecLayers + 4;
            r.module = s.aztecModule;
            b.settings =
                QStringLiteral("%1, couches %2, module %3, correction %4 %")
                    .arg(s.aztecCompact ? QStringLiteral("compact") : QStringLiteral("complet"))
                    .arg(s.aztecLayers)
                    .arg(s.aztecModule)
                    .arg(c);
            break;
        }
        case K::DataMatrix: {
            b.symbology = QStringLiteral("DataMatrix");
            r.symbology = BARCODE_DATAMATRIX;
            r.module = s.dataMatrixModule;
            // libzint's sizes in its own order: squares, then rectangles.
            static const int squares[] = {10, 12, 14, 16, 18, 20, 22, 24, 26,  32,  36,  40,
                                          44, 48, 52, 64, 72, 80, 88, 96, 104, 120, 132, 144};
            static const int rectangles[][2] = {{8, 18},  {8, 32},  {12, 26},
                                                {12, 36}, {16, 36}, {16, 48}};
            if (!s.dataMatrixRectangle) {
                r.option3 = DM_SQUARE;
                const auto* at =
                    std::find(std::begin(squares), std::end(squares), s.dataMatrixColumns);
                if (s.dataMatrixColumns && at != std::end(squares))
                    r.option2 = int(at - std::begin(squares)) + 1;
            } else {
                for (int i = 0; i < 6; ++i)
                    if (rectangles[i][0] == s.dataMatrixRows &&
                        rectangles[i][1] == s.dataMatrixColumns)
                        r.option2 = 25 + i;
            }
            b.settings = QStringLiteral("%1 %2x%3, module %4")
                             .arg(s.dataMatrixRectangle ? QStringLiteral("rectangle")
                                                        : QStringLiteral("carré"))
                             .arg(s.dataMatrixColumns)
                             .arg(s.dataMatrixRows)
                             .arg(s.dataMatrixModule);
            break;
        }
        default:
            return refused(b, QStringLiteral("symbole inconnu"));
    }
    if (!s.hasData[size_t(kind)]) return refused(b, QStringLiteral("aucune donnée enregistrée"));
    b.module = r.module;
    Barcode drawn = finished(b, draw(r));
    drawn.hri.clear();
    drawn.height = drawn.picture.height();
    return drawn;
}

}  // namespace escpos
