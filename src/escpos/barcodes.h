#pragma once
// GS k: the symbol a printer makes of a barcode's data, or why it refuses
// it. The pattern is the widths of bar, space, bar... in modules ('1' to
// '4') or, for the two-width symbologies, narrow 'n' and wide 'w'.
#include <QByteArray>

#include "escpos/document.h"

namespace escpos {

// m as sent (0 to 6 in the form ended by NUL, 65 to 73 in the counted form).
Barcode encodeBarcode(int system, const QByteArray& data);

// Dots of one element at a module width (GS w): a digit is that many
// modules; a wide element is about two and a half narrow ones.
int elementDots(QChar element, int module);
int patternDots(const QString& pattern, int module);

}  // namespace escpos
