#pragma once
// Paints a sheet as the printer would print it, at 203 dpi, one image pixel
// a printer dot: thermal black on white paper, with what is not ink (cut
// marks, drawer pulses, unknown bytes, notes, page frames) drawn in colour.
#include <QImage>

#include "escpos/document.h"

namespace escpos {

QImage renderSheet(const Sheet& sheet);
// The height of that picture, without drawing it.
int sheetHeight(const Sheet& sheet);

}  // namespace escpos
