#pragma once
// The pictures a printer keeps between the command that sends them and the
// one that prints them: the graphics of the print buffer, the downloaded and
// NV graphics by key code, the downloaded bit image and the NV bit images.
// All are kept as rows of dots, whatever form they came in.
#include <QByteArrayView>
#include <map>
#include <optional>
#include <vector>

#include "escpos/document.h"

namespace escpos {

// Rows of (width + 7) / 8 bytes, the left dot in the high bit. The data
// holds at least rasterBytes(width, height) bytes.
Picture rasterPicture(QByteArrayView data, int width, int height);
qint64 rasterBytes(int width, int height);
// Columns of (height + 7) / 8 bytes, the top dot in the high bit.
Picture columnPicture(QByteArrayView data, int width, int height);
qint64 columnBytes(int width, int height);
// The left width columns and top height rows of a picture.
Picture cropped(const Picture& picture, int width, int height);
// Every dot set in either picture of the same size (the colours of one
// picture, printed in one colour).
void overlay(Picture& picture, const Picture& other);

// The scaling of GS v 0, GS / and FS p: m of 0 to 3 or 48 to 51, bit 0
// doubling across and bit 1 down. False for any other m.
bool pictureScaling(int m, int& scaleX, int& scaleY);

// The length of FS q n [xL xH yL yH d1...dk]...: as a command length, minus
// the bytes it needs at least when the data is short, or 3 when an image's
// size is out of range (the bytes that follow are then not taken as images).
qsizetype nvBitImagesLength(QByteArrayView d);

struct PictureStore {
    std::optional<Picture> buffer;      // GS ( L 112 and 113, printed by 50
    std::map<int, Picture> downloaded;  // GS ( L 83 and 84, by key code
    std::map<int, Picture> nv;          // GS ( L 67 and 68, by key code
    std::optional<Picture> bitImage;    // GS *, printed by GS /
    std::vector<Picture> nvBitImages;   // FS q, printed by FS p 1, 2, ...
};

}  // namespace escpos
