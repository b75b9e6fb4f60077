#pragma once
// The printer's two character fonts as small images, one a character and
// style, made once from a monospaced font without smoothing (a thermal head
// prints whole dots) and then only copied.
#include <QImage>

namespace escpos {

// Black on transparent, 12x24 (font A) or 9x17 (font B); white on black
// when reverse.
const QImage& glyph(char16_t c, bool fontB, bool bold, bool reverse);

}  // namespace escpos
