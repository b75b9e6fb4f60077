#pragma once
// An independent reader of bar codes and 2D symbols (zxing-cpp) on the
// pictures the virtual printer draws.
#include <QImage>
#include <QStringList>

#include "escpos/document.h"

// What the reader decodes in a picture holding one symbol (empty or one text).
// Pure: the symbol alone with its quiet zone.
QStringList readSymbols(const QImage& picture, bool pure = false);

// The sheet as drawn, and the band of each symbol or tall block (a picture
// may hold a symbol too), full width with a white margin round it, read on
// its own.
struct DrawnSymbol {
    const escpos::Barcode* symbol = nullptr;  // null for another kind of block
    QStringList read;
};
std::vector<DrawnSymbol> readDrawnSymbols(const escpos::Sheet& sheet);
