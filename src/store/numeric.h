#pragma once
// The one numeric reading rule of the suite: blanks are skipped wherever they
// stand, reading stops at the first character that cannot belong to a number,
// and a text with no leading digit reads as 0. "1 2" reads 12, "12abc" 12,
// "abc" 0, "-3" -3, "2,5" 2, "1.5" 1.5.
#include <QByteArrayView>
#include <QString>

double numericValue(QByteArrayView text);
double numericValue(const QString& text);
inline double numericValue(const QByteArray& text) { return numericValue(QByteArrayView(text)); }
inline double numericValue(const char* text) { return numericValue(QByteArrayView(text)); }

// Round to the nearest integer, ties to even (2.5 gives 2, 3.5 gives 4).
double roundHalfEven(double value);

// A number in the format "0", as every screen shows one: rounded half away
// from zero (2.5 gives 3, -2.5 gives -3), no decimals, no sign on a value that
// rounds to nothing, and no limit on its size (3000000000 stays so).
QString formatZero(double value);

// Conversions that fail as the suite's would: a byte outside 0..255, a 16-bit
// integer outside -32768..32767. They throw Failure.
unsigned char toByte(double value);
qint16 toInt16(double value);
qint32 toInt32(double value);

// A 16-bit value read from text by the rule above (blank or letters give 0).
inline qint16 numericInt16(const QString& text) { return toInt16(numericValue(text)); }
