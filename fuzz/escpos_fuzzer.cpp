// libFuzzer target for the ESC/POS decoder and renderer: any bytes, in
// pieces of any size, must give a document without a crash, a hang or a
// sanitizer report, and the document must be dumped and drawn.
#include <QGuiApplication>
#include <cstdint>

#include "escpos/decoder.h"
#include "escpos/dump.h"
#include "escpos/render.h"

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Fonts need an application; it lives for the whole run.
    static QGuiApplication app(*argc, *argv);
    // Fonts are looked up once and kept by the font system: draw every kind
    // of thing now, so that no input is blamed for those allocations.
    escpos::Decoder warmUp;
    warmUp.feed(
        QByteArrayView("A\x1b"
                       "E\x01"
                       "B\x1b!\x01"
                       "C\x1b!\x09"
                       "D\x07\n"
                       "\x1dH\x03\x1dk\x02"
                       "1234567890128\x00"
                       "\x1dH\x03\x1d"
                       "f\x01\x1dk\x02"
                       "1234567890128\x00"
                       "\x1bp\x00\x01\x02\x1dVA\x01\x1dV\x01"
                       "\x1bL\x1bT\x01"
                       "E\x0c\x1bLF"
                       "\x1d(k\x03\x00"
                       "1Q0\x1d(k\x05\x00"
                       "1P0QR\x1d(k\x03\x00"
                       "1Q0"
                       // A long marker, its label cut with an ellipsis.
                       "\x1d(k\x20\x00"
                       "ABCDEFGHIJ"));
    warmUp.finish();
    for (const escpos::Sheet& sheet : warmUp.document().sheets) (void)escpos::renderSheet(sheet);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) return 0;
    // The first byte chooses the paper, whether the document is dumped and
    // drawn (both cost more than decoding), and the size of the pieces the
    // bytes arrive in, as a serial line would cut them.
    const bool narrow = data[0] & 0x80;
    const bool dumped = data[0] & 0x40;
    const bool drawn = (data[0] & 0x70) == 0x70 && size < 512;
    const size_t piece = (data[0] & 0x0F) + 1;
    escpos::Decoder decoder(narrow ? 58 : 80);
    const char* bytes = reinterpret_cast<const char*>(data + 1);
    for (size_t at = 0; at < size - 1; at += piece)
        decoder.feed(QByteArrayView(bytes + at, qsizetype(std::min(piece, size - 1 - at))));
    decoder.finish();
    const escpos::Document& doc = decoder.document();
    if (dumped) (void)escpos::dump(doc);
    if (drawn)
        for (const escpos::Sheet& sheet : doc.sheets)
            // Tall pictures cost the fuzzer more in memory than they find.
            if (escpos::sheetHeight(sheet) <= 1200) (void)escpos::renderSheet(sheet);
    return 0;
}
