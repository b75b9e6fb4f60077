#include "shell/colours.h"

#include "store/failure.h"

QColor colourFromNumber(double number) {
    // A colour number is a 32-bit integer; a record that holds more (such as
    // "##1e300") draws black, and is never converted beyond its range.
    if (!(number > -2147483649.0 && number < 2147483648.0)) return QColor(Qt::black);
    const auto value = static_cast<quint32>(static_cast<qint64>(number) & 0xFFFFFF);
    return QColor(int(value & 0xFF), int((value >> 8) & 0xFF), int((value >> 16) & 0xFF));
}

QColor paletteColour(int number) {
    static constexpr QRgb palette[16] = {
        0x000000, 0x000080, 0x008000, 0x008080, 0x800000, 0x800080, 0x808000, 0xC0C0C0,
        0x808080, 0x0000FF, 0x00FF00, 0x00FFFF, 0xFF0000, 0xFF00FF, 0xFFFF00, 0xFFFFFF,
    };
    if (number < 0 || number > 15)
        throw Failure(QStringLiteral("Argument ou appel de procédure incorrect"));
    return QColor(palette[number]);
}
