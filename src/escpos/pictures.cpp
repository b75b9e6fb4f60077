#include "escpos/pictures.h"

#include <algorithm>

namespace escpos {

namespace {

unsigned char at(QByteArrayView c, qsizetype i) {
    return static_cast<unsigned char>(c.at(i));
}

Picture blank(int width, int height) {
    Picture p;
    p.width = p.sourceWidth = width;
    p.height = height;
    p.rows = QByteArray(qsizetype(p.bytesPerRow()) * height, '\0');
    return p;
}

}  // namespace

qint64 rasterBytes(int width, int height) {
    return (qint64(width) + 7) / 8 * height;
}

qint64 columnBytes(int width, int height) {
    return qint64(width) * ((height + 7) / 8);
}

Picture rasterPicture(QByteArrayView data, int width, int height) {
    Picture p = blank(width, height);
    std::copy_n(data.data(), p.rows.size(), p.rows.data());
    return p;
}

Picture columnPicture(QByteArrayView data, int width, int height) {
    Picture p = blank(width, height);
    const int bytesPerColumn = (height + 7) / 8;
    char* rows = p.rows.data();
    for (int col = 0; col < width; ++col)
        for (int row = 0; row < height; ++row)
            if (at(data, qsizetype(col) * bytesPerColumn + row / 8) >> (7 - row % 8) & 1)
                rows[qsizetype(row) * p.bytesPerRow() + col / 8] |= char(0x80 >> (col % 8));
    return p;
}

Picture cropped(const Picture& picture, int width, int height) {
    width = std::clamp(width, 0, picture.width);
    height = std::clamp(height, 0, picture.height);
    if (width == picture.width && height == picture.height) return picture;
    Picture p = picture;
    p.width = width;
    p.height = height;
    p.rows = QByteArray(qsizetype(p.bytesPerRow()) * height, '\0');
    for (int row = 0; row < height; ++row) {
        char* out = p.rows.data() + qsizetype(row) * p.bytesPerRow();
        std::copy_n(picture.rows.constData() + qsizetype(row) * picture.bytesPerRow(),
                    p.bytesPerRow(), out);
        // The dots of the last byte beyond the new right edge.
        if (width % 8) out[p.bytesPerRow() - 1] &= char(0xFF << (8 - width % 8));
    }
    return p;
}

void overlay(Picture& picture, const Picture& other) {
    if (other.width != picture.width || other.height != picture.height) return;
    for (qsizetype i = 0; i < picture.rows.size(); ++i) picture.rows[i] |= other.rows.at(i);
}

bool pictureScaling(int m, int& scaleX, int& scaleY) {
    if (m >= 48) m -= 48;
    if (m < 0 || m > 3) return false;
    scaleX = (m & 1) + 1;
    scaleY = (m >> 1 & 1) + 1;
    return true;
}

qsizetype nvBitImagesLength(QByteArrayView d) {
    // Images of at most 1023 by 288 bytes; no more than 16 MB in all.
    constexpr qsizetype most = qsizetype(1) << 24;
    const qsizetype have = d.size();
    if (have < 3) return -(have + 1);
    const int count = at(d, 2);
    qsizetype length = 3;
    for (int i = 0; i < count; ++i) {
        if (have < length + 4) return -(length + 4);
        const int x = at(d, length) | at(d, length + 1) << 8;
        const int y = at(d, length + 2) | at(d, length + 3) << 8;
        if (x < 1 || x > 1023 || y < 1 || y > 288) return 3;
        length += 4 + qsizetype(x) * y * 8;
        if (length > most) return 3;
    }
    return have >= length ? length : -length;
}

}  // namespace escpos
