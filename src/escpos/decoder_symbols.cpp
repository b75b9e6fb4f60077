// The decoder's bar codes (GS k) and two-dimensional symbols (GS ( k): their
// settings, their stored data, and where they stand on the paper.
#include "escpos/decoder.h"

namespace escpos {

namespace {

unsigned char at(QByteArrayView c, qsizetype i) {
    return static_cast<unsigned char>(c.at(i));
}

// A setting taken when in its range.
bool take(int& setting, int value, int low, int high) {
    if (value < low || value > high) return false;
    setting = value;
    return true;
}

}  // namespace

void Decoder::barcode(int system, const QByteArray& data) {
    Barcode b = drawBarcode(system, data, barModule_, barHeight_);
    b.hriPosition = hriPosition_;
    b.hriFontB = hriFontB_;
    placeSymbol(std::move(b));
}

// GS ( k pL pH cn fn parameters: cn the symbol (48 PDF417 to 54 DataMatrix),
// fn the function (80 stores the data, 81 prints it, the others set it up).
void Decoder::symbolFunction(QByteArrayView c) {
    if (c.size() < 7) return mark(c, QStringLiteral("fonction de symbole incomplète"));
    const int cn = at(c, 5), fn = at(c, 6);
    if (cn < 48 || cn > 54) return mark(c, QStringLiteral("symbole %1 inconnu").arg(cn));
    const auto kind = SymbolSettings::Kind(cn - 48);
    const QByteArrayView p = c.sliced(7);
    auto n = [&](qsizetype i) { return i < p.size() ? int(at(p, i)) : -1; };
    SymbolSettings& s = symbols_;
    using K = SymbolSettings;
    if (fn == 80) {
        // m (48), then the data; a composite says which part it is.
        const qsizetype skip = kind == K::Composite ? 2 : 1;
        if (p.size() <= skip) return mark(c, QStringLiteral("données de symbole vides"));
        const QByteArray data = p.sliced(skip).toByteArray();
        if (kind == K::Composite && n(1) == 48) {
            s.compositeLinear = data;
            return;
        }
        s.stored[size_t(kind)] = data;
        s.hasData[size_t(kind)] = true;
        return;
    }
    if (fn == 81) return placeSymbol(drawSymbol(kind, s));
    if (fn == 82) return mark(c, QStringLiteral("demande de taille : le ticket n'en montre rien"));
    bool taken = false;
    switch (kind) {
        case K::Qr:
            taken = fn == 65   ? take(s.qrModel, n(0), 49, 51)
                    : fn == 67 ? take(s.qrModule, n(0), 1, 16)
                               : fn == 69 && take(s.qrLevel, n(0), 48, 51);
            break;
        case K::Pdf417:
            if (fn == 65) taken = take(s.pdfColumns, n(0), 0, 30);
            if (fn == 66) taken = n(0) != 1 && n(0) != 2 && take(s.pdfRows, n(0), 0, 90);
            if (fn == 67) taken = take(s.pdfModule, n(0), 2, 8);
            if (fn == 68) taken = take(s.pdfRowHeight, n(0), 2, 8);
            if (fn == 69 && n(0) == 48) {
                taken = take(s.pdfLevel, n(1) - 48, 0, 8);
            } else if (fn == 69 && n(0) == 49 && take(s.pdfRatio, n(1), 1, 40)) {
                s.pdfLevel = -1;
                taken = true;
            }
            if (fn == 70 && (n(0) == 0 || n(0) == 1)) {
                s.pdfTruncated = n(0) == 1;
                taken = true;
            }
            break;
        case K::MaxiCode:
            taken = fn == 65 && take(s.maxiMode, n(0), 50, 54);
            break;
        case K::DataBar:
        case K::Composite: {
            int& module = kind == K::DataBar ? s.dataBarModule : s.compositeModule;
            if (fn == 67) taken = take(module, n(0), 2, 8);
            if (fn == 71 && p.size() >= 2) {
                s.dataBarMaxWidth = n(0) | n(1) << 8;
                taken = true;
            }
            if (fn == 72 && kind == K::Composite && n(0) >= 0) {
                s.compositeHriFontB = n(0) & 1;
                taken = true;
            }
            break;
        }
        case K::Aztec:
            if (fn == 66 && (n(0) == 0 || n(0) == 1) &&
                take(s.aztecLayers, n(1), 0, n(0) ? 4 : 32)) {
                s.aztecCompact = n(0) == 1;
                taken = true;
            }
            if (fn == 67) taken = take(s.aztecModule, n(0), 2, 16);
            if (fn == 69) taken = take(s.aztecCorrection, n(0), 5, 95);
            break;
        case K::DataMatrix:
            if (fn == 66 && (n(0) == 0 || n(0) == 1) && p.size() >= 3) {
                s.dataMatrixRectangle = n(0) == 1;
                s.dataMatrixColumns = n(1);
                s.dataMatrixRows = n(2);
                taken = true;
            }
            if (fn == 67) taken = take(s.dataMatrixModule, n(0), 2, 16);
            break;
        default:
            break;
    }
    if (!taken) mark(c, QStringLiteral("réglage de symbole inconnu ou hors plage"));
}

// A symbol stands on a line of its own, in the justification that holds.
void Decoder::placeSymbol(Barcode b) {
    if (!startOwnLine(QStringLiteral("code-barres %1 en mode page, non rendu").arg(b.symbology)))
        return;
    const int room = pageLineLength();
    if (b.error.isEmpty() && b.width > room)
        b.error =
            QStringLiteral("plus large que le papier (%1 points pour %2)").arg(b.width).arg(room);
    if (!b.error.isEmpty()) b.picture = QImage();
    b.x = b.error.isEmpty() ? justifiedX(b.width) : leftMargin_;
    addBlock(std::move(b));
}

}  // namespace escpos
