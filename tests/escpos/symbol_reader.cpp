#include "symbol_reader.h"

#define ZX_USE_UTF8
#include <ZXing/ReadBarcode.h>

#include <QPainter>

#include "escpos/render.h"

QStringList readSymbols(const QImage& picture, bool pure) {
    const QImage grey = picture.convertToFormat(QImage::Format_Grayscale8);
    ZXing::DecodeHints hints;
    hints.setTryHarder(true);
    hints.setIsPure(pure);
    hints.setFormats(ZXing::BarcodeFormat::Any);
    const ZXing::ImageView view(grey.constBits(), grey.width(), grey.height(),
                                ZXing::ImageFormat::Lum, int(grey.bytesPerLine()));
    // One symbol a picture: several at once trip an assertion of zxing-cpp 1.4
    // on stacked symbols.
    const ZXing::Result r = ZXing::ReadBarcode(view, hints);
    return r.isValid() ? QStringList{QString::fromStdString(r.text())} : QStringList{};
}

namespace {

QImage withMargin(const QImage& picture) {
    QImage framed(picture.width() + 80, picture.height() + 80, QImage::Format_RGB32);
    framed.fill(Qt::white);
    QPainter(&framed).drawImage(QPoint(40, 40), picture);
    return framed;
}

}  // namespace

std::vector<DrawnSymbol> readDrawnSymbols(const escpos::Sheet& sheet) {
    const QImage drawn = escpos::renderSheet(sheet);
    // Blocks stand one under the other between equal margins: a block's top
    // is the height of the sheet cut before it, less the bottom margin.
    const int margin = escpos::sheetHeight(escpos::Sheet{}) / 2;
    std::vector<DrawnSymbol> found;
    escpos::Sheet before = sheet;
    before.blocks.clear();
    for (const escpos::Block& block : sheet.blocks) {
        const int top = escpos::sheetHeight(before) - margin;
        before.blocks.push_back(block);
        const auto* symbol = std::get_if<escpos::Barcode>(&block);
        const int bottom = escpos::sheetHeight(before) - margin;
        if (!symbol && bottom - top < 48) continue;
        QStringList read = readSymbols(withMargin(drawn.copy(0, top, drawn.width(), bottom - top)));
        // zxing-cpp 1.4 finds small Aztec symbols only alone in the picture:
        // then the symbol's own square, where the painter put it.
        if (read.isEmpty() && symbol && !symbol->picture.isNull()) {
            const int y =
                top + 4 + (symbol->hriPosition & 1 ? (symbol->hriFontB ? 17 : 24) + 4 : 0);
            read = readSymbols(withMargin(drawn.copy(sheet.leftMargin + symbol->x, y, symbol->width,
                                                     symbol->picture.height())),
                               true);
        }
        found.push_back({symbol, read});
    }
    return found;
}
