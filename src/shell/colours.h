#pragma once
// Colours as the suite stores them: 24-bit numbers in blue, green, red order,
// and the classic 16-colour palette of its dialogs.
#include <QColor>

// 4210752 (0x404040) is the dark grey of the default theme; 255 is red. A
// number beyond 32 bits is black.
QColor colourFromNumber(double number);
// Palette numbers 0 to 15; any other number throws Failure.
QColor paletteColour(int number);
