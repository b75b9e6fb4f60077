#include "escpos/glyphs.h"

#include <QFont>
#include <QFontMetrics>
#include <QPainter>
#include <mutex>
#include <unordered_map>

namespace escpos {

namespace {

QFont printerFont(bool fontB, bool bold) {
    QFont font(QStringLiteral("Liberation Mono"));
    // The katakana and kanji of the Japanese table come from a font that
    // has them; fontconfig finds any other character a font of its choice.
    font.setFamilies({QStringLiteral("Liberation Mono"), QStringLiteral("VL Gothic")});
    font.setStyleHint(QFont::Monospace);
    font.setPixelSize(fontB ? 15 : 20);
    font.setBold(bold);
    font.setStyleStrategy(QFont::NoAntialias);
    return font;
}

QImage make(char16_t c, bool fontB, bool bold, bool reverse) {
    const int width = fontB ? 9 : 12, height = fontB ? 17 : 24;
    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    image.fill(reverse ? Qt::black : Qt::transparent);
    QPainter p(&image);
    const QFont font = printerFont(fontB, bold);
    p.setFont(font);
    p.setPen(reverse ? Qt::white : Qt::black);
    const QFontMetrics metrics(font);
    // Characters a printer has no glyph for print as a hollow box.
    const QChar ch(c);
    if (c == 0xFFFD || !ch.isPrint()) {
        p.drawRect(1, 3, width - 3, height - 7);
        return image;
    }
    const int baseline = (height - metrics.height()) / 2 + metrics.ascent();
    const int x = (width - metrics.horizontalAdvance(ch)) / 2;
    p.drawText(x, baseline, QString(ch));
    return image;
}

}  // namespace

const QImage& glyph(char16_t c, bool fontB, bool bold, bool reverse) {
    static std::mutex mutex;
    static std::unordered_map<quint32, QImage> cache;  // references stay valid
    const quint32 key = c | quint32(fontB) << 16 | quint32(bold) << 17 | quint32(reverse) << 18;
    std::lock_guard lock(mutex);
    auto it = cache.find(key);
    if (it == cache.end()) it = cache.emplace(key, make(c, fontB, bold, reverse)).first;
    return it->second;
}

}  // namespace escpos
