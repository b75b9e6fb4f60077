#include "print/accents.h"

namespace {

// The known characters in Windows-1252: é è ê ï î ç à ° € û ù ô ö, and ë,
// which only the USB side looks for and which has no partner in any table.
constexpr char sourceSerial[] = "\xE9\xE8\xEA\xEF\xEE\xE7\xE0\xB0\x80\xFB\xF9\xF4\xF6";
constexpr char sourceUsb[] = "\xE9\xE8\xEA\xEF\xEE\xE7\xE0\xB0\x80\xFB\xF9\xF4\xF6\xEB";
// Mode 1: the plain letters.
constexpr char targetPlain[] = "eeeiicaoEuuoo";
// Mode 2: the printer's international set (IBM PC), the euro sign at 238.
constexpr char targetInternational[] = "\x82\x8A\x88\x8B\x8C\x87\x85\xF8\xEE\x96\x97\x93\x94";

// Each character found at position p of the source is overwritten by
// character p of the target, when the target has one.
void translate(QByteArray& text, QByteArrayView source, QByteArrayView target) {
    const qsizetype length = text.size();
    for (qsizetype i = 0; i < length; ++i) {
        const qsizetype p = source.indexOf(text.at(i));
        if (p >= 0 && p < target.size()) text[i] = target[p];
    }
}

QByteArrayView targetFor(int mode) {
    switch (mode) {
        case 1:
            return targetPlain;
        case 2:
            return targetInternational;
        default:
            return {};  // 3 and above: nothing replaced
    }
}

}  // namespace

void traduit_accents(QByteArray& text, int mode) {
    if (mode != 1 && mode != 2) return;
    translate(text, sourceSerial, targetFor(mode));
}

void traduit_accents_usb(QByteArray& text, int mode) {
    if (mode <= 0) return;
    translate(text, sourceUsb, targetFor(mode));
}
