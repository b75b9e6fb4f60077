#pragma once
// The line a printer fills before it prints it: characters of the current
// style side by side from a start position, bit images, and markers for
// bytes it ignores. It knows its length and tells when a cell no longer fits.
#include "escpos/code_tables.h"
#include "escpos/document.h"

namespace escpos {

class LineBuilder {
  public:
    void start(int origin, int length);
    bool empty() const { return items_.empty() && markers_.empty(); }
    int x() const { return x_; }
    // Moves to dots from the origin, within the line.
    void moveTo(int x);

    // False when the cell does not fit: the caller prints the line first.
    bool addChar(unsigned char byte, const Style& style, int rightSpacing);
    bool fits(int width) const { return x_ + width <= length_ || x_ == 0; }
    void addImage(BitImage image);
    void addMarker(QByteArrayView bytes, const QString& why);

    // The line as printed, moved right by the justification (0 left, 1
    // centre, 2 right). It feeds the paper by advance, or by at least its
    // height when tallest is set.
    Line take(int justification, int advance, bool tallest = true);

  private:
    std::vector<LineItem> items_;
    std::vector<Marker> markers_;
    int origin_ = 0, length_ = 0, x_ = 0;
};

}  // namespace escpos
