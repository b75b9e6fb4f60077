#pragma once
// Bar codes (GS k) and two-dimensional symbols (GS ( k) drawn by libzint at
// the printer's dot size: the symbol's picture, its human-readable text, or
// why the printer refuses it.
#include <QByteArray>
#include <array>

#include "escpos/document.h"

namespace escpos {

// GS k: m as sent (0 to 6 ended by NUL, 65 to 79 counted), the module width
// in dots (GS w) and the height of the bars (GS h).
Barcode drawBarcode(int system, const QByteArray& data, int module, int height);

// The settings of GS ( k, kept until ESC @, and the data stored for each
// symbol (function 80), printed by function 81.
struct SymbolSettings {
    enum Kind { Pdf417, Qr, MaxiCode, DataBar, Composite, Aztec, DataMatrix, kinds };
    std::array<QByteArray, kinds> stored;
    std::array<bool, kinds> hasData{};

    int qrModel = 50;  // 49 model 1, 50 model 2, 51 micro
    int qrModule = 3;
    int qrLevel = 48;  // 48 L to 51 H

    int pdfColumns = 0, pdfRows = 0;  // 0: as the data needs
    int pdfModule = 3, pdfRowHeight = 3;
    int pdfLevel = -1;  // 0 to 8, -1 from the ratio
    int pdfRatio = 1;   // tenths of the data's code words
    bool pdfTruncated = false;

    int maxiMode = 50;  // 50 mode 2 to 54 mode 6

    int dataBarModule = 2;
    int dataBarMaxWidth = 0;  // dots, 0 for no limit (expanded stacked)
    int compositeModule = 2;
    bool compositeHriFontB = false;
    QByteArray compositeLinear;  // its type, then its data

    bool aztecCompact = false;
    int aztecLayers = 0;  // 0: as the data needs
    int aztecModule = 3;
    int aztecCorrection = 23;  // per cent

    bool dataMatrixRectangle = false;
    int dataMatrixColumns = 0, dataMatrixRows = 0;
    int dataMatrixModule = 3;
};

// GS ( k function 81: the symbol stored for kind, drawn with the settings.
Barcode drawSymbol(SymbolSettings::Kind kind, const SymbolSettings& settings);

}  // namespace escpos
