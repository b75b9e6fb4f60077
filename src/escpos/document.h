#pragma once
// What a ticket printer makes of a stream of ESC/POS bytes: sheets (a roll
// ticket ends at each cut, a slip when it is ejected), each a column of
// blocks from top to bottom. Every length is in printer dots at 203 dpi.
#include <QByteArray>
#include <QImage>
#include <QList>
#include <QString>
#include <algorithm>
#include <array>
#include <variant>
#include <vector>

namespace escpos {

constexpr int dotsPerInch = 203;

struct Style {
    bool bold = false;        // ESC E, ESC G, ESC ! bit 3
    int underline = 0;        // ESC - 0, 1, 2 dots; ESC ! bit 7
    int widthScale = 1;       // ESC ! bit 5, GS ! high nibble
    int heightScale = 1;      // ESC ! bit 4, GS ! low nibble
    bool fontB = false;       // ESC ! bit 0, ESC M
    bool reverse = false;     // GS B
    bool upsideDown = false;  // ESC {
    bool rotated = false;     // ESC V: turned 90 degrees clockwise
    bool italic = false;      // ESC 4
    int codeTable = 0;        // ESC t
    int international = 0;    // ESC R

    int cellWidth() const { return (fontB ? 9 : 12) * widthScale; }
    int cellHeight() const { return (fontB ? 17 : 24) * heightScale; }
    bool operator==(const Style&) const = default;
};

// Characters of one style side by side, pitch dots apart.
struct TextRun {
    int x = 0;
    int pitch = 12;  // dots from one character to the next
    Style style;
    QByteArray bytes;  // as received, one character a byte

    int width() const { return int(bytes.size()) * pitch; }
    QString text() const;  // as printed, through the run's code table
};

// Bytes the printer does not know or ignores, shown where they came. They
// take no room on the line: the printer prints nothing for them.
struct Marker {
    static constexpr int kept = 12;
    int x = 0;
    std::array<char, kept> head{};  // the first bytes of the command
    int size = 0;                   // all its bytes
    QString why;

    QByteArray bytes() const { return QByteArray(head.data(), std::min(size, kept)); }
};

// ESC *: columns of 8 or 24 dots, each dot drawn scaleX by scaleY.
struct BitImage {
    int x = 0;
    int mode = 0;
    int columns = 0;
    int dotsPerColumn = 8;
    int scaleX = 1, scaleY = 1;
    QByteArray data;  // column after column, top dot in the high bit

    int width() const { return columns * scaleX; }
    int height() const { return dotsPerColumn * scaleY; }
    bool dot(int column, int row) const {
        const int bytesPerColumn = dotsPerColumn / 8;
        const char byte = data.at(column * bytesPerColumn + row / 8);
        return (byte >> (7 - row % 8)) & 1;
    }
};

using LineItem = std::variant<TextRun, BitImage>;

// A printed line (or a pure feed when it holds nothing): its items, and the
// paper it takes. Items stand on a common baseline at the bottom.
struct Line {
    std::vector<LineItem> items;
    std::vector<Marker> markers;
    int height = 0;   // tallest item
    int advance = 0;  // paper fed by the line: at least its height
};

// A bar code (GS k) or a two-dimensional symbol (GS ( k), drawn at the
// printer's dots.
struct Barcode {
    QString command;        // "GS k" or "GS ( k"
    QString symbology;      // "EAN13", "QR", ...
    int system = 0;         // m of GS k, cn of GS ( k
    QByteArray data;        // as sent
    QString settings;       // what shaped it: module, correction, size...
    QString error;          // why the printer refuses it, empty when printed
    QImage picture;         // one pixel a dot, black on white
    QString hri;            // the human-readable text
    int module = 3;         // dots a module
    int height = 162;       // GS h: the bars of a linear code
    int hriPosition = 0;    // GS H: 0 none, 1 above, 2 below, 3 both
    bool hriFontB = false;  // GS f
    int x = 0;
    int width = 0;  // dots
};

// A raster picture (GS v 0, GS ( L, GS /, FS p), printed as a block of its
// own: each dot drawn scaleX by scaleY.
struct Picture {
    QString command;  // "GS v 0", "GS ( L 50", ...
    int x = 0;
    int width = 0, height = 0;  // dots of the picture as printed, before scaling
    int sourceWidth = 0;        // dots as sent, wider when the paper cut the right side off
    int scaleX = 1, scaleY = 1;
    QByteArray rows;  // row after row, (width + 7) / 8 bytes a row, left dot in the high bit

    int bytesPerRow() const { return (width + 7) / 8; }
    int printedWidth() const { return width * scaleX; }
    int printedHeight() const { return height * scaleY; }
    bool dot(int column, int row) const {
        const char byte = rows.at(qsizetype(row) * bytesPerRow() + column / 8);
        return (byte >> (7 - column % 8)) & 1;
    }
};

struct Cut {
    bool partial = false;
    int feed = 0;  // dots fed before cutting
    QByteArray bytes;
};

// ESC p or DLE DC4: the drawer kick.
struct Pulse {
    int pin = 2;
    int onMs = 0, offMs = 0;
    QByteArray bytes;
};

// Page mode: an area laid out in the direction of print and printed whole.
// Lines are kept in that direction (u along the line, v across), each with
// the direction it was written in.
struct PageLine {
    int direction = 0;  // ESC T: 0 left to right, 1 bottom to top, 2 right to left, 3 top to bottom
    int v = 0;          // baseline, across the lines
    Line line;
};

struct Page {
    int x = 0, y = 0, width = 0, height = 0;       // the area, in dots
    int unitX = dotsPerInch, unitY = dotsPerInch;  // GS P when it was printed
    std::vector<PageLine> lines;
    QString end;  // "FF", "ESC FF", or why it was lost
};

// A remark on the stream itself (a command cut short at the end, ...).
struct Note {
    QString text;
};

using Block = std::variant<Line, Barcode, Cut, Pulse, Page, Note, Picture>;

// A status request or a real-time command: the printer answers the host or
// acts at once, and prints nothing.
struct Request {
    QByteArray bytes;
    QString what;
};

struct Sheet {
    enum class Paper { Roll, Slip };
    Paper paper = Paper::Roll;
    int paperWidth = 640;      // dots across
    int printableWidth = 576;  // dots
    int leftMargin = 32;       // dots from the edge to the printable area
    std::vector<Block> blocks;
    bool finished = false;          // cut, or ejected
    QString end;                    // how it ended
    std::vector<Request> requests;  // received while the sheet was the last one
};

struct Document {
    std::vector<Sheet> sheets;      // in the order they were started
    std::vector<Request> requests;  // received before any sheet
};

}  // namespace escpos
