#pragma once
// The built-in pictures of the banks, drawn with QPainter: no file is shipped.
#include <QColor>
#include <QPixmap>

namespace pictures {
inline constexpr int barIconSize = 44;

// The icon of a bar image number, or a null pixmap when the number has no
// picture of its own.
QPixmap barIcon(int number);
QPixmap neutralIcon();

// Faces in a tint: a bar slot (80 by 76), a function button, a keypad key.
QPixmap slotFace(const QColor& tint);
QPixmap functionFace(const QColor& tint);
QPixmap keyFace(const QColor& tint);

// Frame piece 0 to 7 (corners 0 to 3 clockwise from top left, then the left,
// top, right and bottom edges), 32 by 32.
QPixmap framePiece(int index);

QPixmap dialogIcon();
QPixmap tickBox(int value);  // 0 empty, 1 ticked, 2 greyed
QPixmap ticket();
// The label printer screen's pictures: its validate button, and a label
// printer with its roll of labels.
QPixmap validate();
QPixmap labelPrinter();
}  // namespace pictures
