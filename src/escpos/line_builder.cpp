#include "escpos/line_builder.h"

#include <algorithm>

namespace escpos {

namespace {

int itemRight(const LineItem& item) {
    if (const auto* run = std::get_if<TextRun>(&item)) return run->x + run->width();
    const auto& image = std::get<BitImage>(item);
    return image.x + image.width();
}

int itemHeight(const LineItem& item) {
    if (const auto* run = std::get_if<TextRun>(&item)) return run->style.cellHeight();
    return std::get<BitImage>(item).height();
}

}  // namespace

void LineBuilder::start(int origin, int length) {
    items_.clear();
    origin_ = origin;
    length_ = std::max(length, 1);
    x_ = 0;
}

void LineBuilder::moveTo(int x) {
    x_ = std::clamp(x, 0, length_);
}

bool LineBuilder::addChar(unsigned char byte, const Style& style, int rightSpacing) {
    const int cell = style.cellWidth();
    if (x_ + cell > length_ && x_ > 0) return false;
    const int pitch = cell + rightSpacing * style.widthScale;
    const int at = origin_ + x_;
    TextRun* run = items_.empty() ? nullptr : std::get_if<TextRun>(&items_.back());
    if (!run || run->style != style || run->pitch != pitch || run->x + run->width() != at) {
        items_.push_back(TextRun{at, pitch, style, {}});
        run = &std::get<TextRun>(items_.back());
    }
    run->bytes += char(byte);
    x_ = std::min(x_ + pitch, length_);
    return true;
}

void LineBuilder::addImage(BitImage image) {
    image.x = origin_ + x_;
    // Columns beyond the end of the line are not printed.
    const int room = (length_ - x_) / image.scaleX;
    if (image.columns > room) {
        image.columns = std::max(room, 0);
        image.data.truncate(qsizetype(image.columns) * (image.dotsPerColumn / 8));
    }
    x_ += image.width();
    items_.push_back(std::move(image));
}

void LineBuilder::addMarker(QByteArrayView bytes, const QString& why) {
    Marker m;
    m.x = origin_ + x_;
    m.size = int(bytes.size());
    std::copy_n(bytes.data(), std::min<qsizetype>(bytes.size(), Marker::kept), m.head.begin());
    m.why = why;
    markers_.push_back(std::move(m));
}

Line LineBuilder::take(int justification, int advance, bool tallest) {
    Line line;
    int right = origin_;
    for (const LineItem& item : items_) {
        line.height = std::max(line.height, itemHeight(item));
        right = std::max(right, itemRight(item));
    }
    const int room = origin_ + length_ - right;
    const int shift = justification == 1 ? room / 2 : justification == 2 ? room : 0;
    if (shift > 0) {
        for (LineItem& item : items_) std::visit([&](auto& i) { i.x += shift; }, item);
        for (Marker& m : markers_) m.x += shift;
    }
    line.items = std::move(items_);
    line.markers = std::move(markers_);
    line.advance = tallest ? std::max(advance, line.height) : advance;
    items_.clear();
    markers_.clear();
    x_ = 0;
    return line;
}

}  // namespace escpos
