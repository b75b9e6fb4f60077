#include "shell/bank_pictures.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <functional>

namespace pictures {
namespace {
QPixmap draw(QSize size, const std::function<void(QPainter&)>& paint) {
    QPixmap picture(size);
    picture.fill(Qt::transparent);
    QPainter p(&picture);
    p.setRenderHint(QPainter::Antialiasing);
    paint(p);
    return picture;
}

// A rounded face with a soft vertical gradient from near white to the tint.
QPixmap face(QSize size, const QColor& tint, int radius) {
    return draw(size, [&](QPainter& p) {
        const QRectF r = QRectF(QPointF(0, 0), QSizeF(size)).adjusted(1.5, 1.5, -1.5, -1.5);
        QLinearGradient fill(r.topLeft(), r.bottomLeft());
        fill.setColorAt(0, QColor(0xFD, 0xFE, 0xFF));
        fill.setColorAt(0.55, tint.lighter(112));
        fill.setColorAt(1, tint);
        p.setBrush(fill);
        p.setPen(QPen(tint.darker(165), 1.5));
        p.drawRoundedRect(r, radius, radius);
        p.setBrush(Qt::NoBrush);
        p.setPen(QPen(QColor(255, 255, 255, 170), 1));
        p.drawRoundedRect(r.adjusted(1.5, 1.5, -1.5, -1.5), radius - 1.5, radius - 1.5);
    });
}

const QColor frameBand(0x2C, 0x4A, 0x6E);
const QColor frameLine(0x9F, 0xBD, 0xE0);
constexpr int piece = 32;
constexpr int band = 8;
}  // namespace

QPixmap neutralIcon() {
    return draw({barIconSize, barIconSize}, [](QPainter& p) {
        p.setPen(QPen(QColor(0x78, 0x90, 0x9C), 3));
        p.setBrush(QColor(0xCF, 0xD8, 0xDC));
        p.drawEllipse(QRectF(9, 9, 26, 26));
    });
}

QPixmap slotFace(const QColor& tint) {
    return face({80, 76}, tint, 11);
}
QPixmap functionFace(const QColor& tint) {
    return face({120, 48}, tint, 9);
}
QPixmap keyFace(const QColor& tint) {
    return face({64, 64}, tint, 8);
}

QPixmap framePiece(int index) {
    return draw({piece, piece}, [index](QPainter& p) {
        // Everything is drawn as the top left corner or the left edge, then
        // turned into place.
        const int quarter = index < 4 ? index : index - 4;
        p.translate(piece / 2.0, piece / 2.0);
        p.rotate(90.0 * quarter);
        p.translate(-piece / 2.0, -piece / 2.0);
        QPainterPath bandPath;
        bandPath.addRect(0, 0, piece, piece);
        QPainterPath inside;
        if (index < 4)
            inside.addRoundedRect(band, band, 3 * piece, 3 * piece, 9, 9);
        else
            inside.addRect(band, -piece, 3 * piece, 3 * piece);
        p.fillPath(bandPath.subtracted(inside), frameBand);
        p.setPen(QPen(frameLine, 2));
        p.setBrush(Qt::NoBrush);
        if (index < 4)
            p.drawRoundedRect(QRectF(band + 1, band + 1, 3 * piece, 3 * piece), 8, 8);
        else
            p.drawLine(QPointF(band + 1, -1), QPointF(band + 1, piece + 1));
    });
}

QPixmap dialogIcon() {
    return draw({48, 48}, [](QPainter& p) {
        QRadialGradient fill(QPointF(18, 16), 30);
        fill.setColorAt(0, QColor(0x5C, 0x9D, 0xE8));
        fill.setColorAt(1, QColor(0x1A, 0x4F, 0x9C));
        p.setBrush(fill);
        p.setPen(QPen(QColor(0x12, 0x3A, 0x75), 1.5));
        p.drawEllipse(QRectF(2, 2, 44, 44));
        p.setPen(Qt::NoPen);
        p.setBrush(Qt::white);
        p.drawEllipse(QRectF(20.5, 9, 7, 7));
        p.drawRoundedRect(QRectF(20.5, 19, 7, 20), 2, 2);
    });
}

QPixmap tickBox(int value) {
    return draw({24, 24}, [value](QPainter& p) {
        p.setPen(QPen(QColor(0x45, 0x5A, 0x64), 1.5));
        p.setBrush(value == 2 ? QColor(0xCF, 0xD8, 0xDC) : QColor(Qt::white));
        p.drawRoundedRect(QRectF(2, 2, 20, 20), 3, 3);
        if (value == 0) return;
        p.setPen(QPen(value == 1 ? QColor(0x2E, 0x8B, 0x3E) : QColor(0x78, 0x90, 0x9C), 3.2,
                      Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        const QPointF tick[] = {{6.5, 12.5}, {10.5, 16.5}, {17.5, 7.5}};
        p.drawPolyline(tick, 3);
    });
}

QPixmap ticket() {
    return draw({60, 90}, [](QPainter& p) {
        QPainterPath paper;
        paper.moveTo(4, 2);
        paper.lineTo(56, 2);
        paper.lineTo(56, 82);
        for (int x = 56; x > 4; x -= 8) {
            paper.lineTo(x - 4, 88);
            paper.lineTo(x - 8, 82);
        }
        paper.closeSubpath();
        p.setPen(QPen(QColor(0x90, 0xA4, 0xAE), 1));
        p.setBrush(Qt::white);
        p.drawPath(paper);
        p.setPen(QPen(QColor(0x60, 0x7D, 0x8B), 2));
        for (int y = 14; y < 72; y += 9) p.drawLine(12, y, y % 2 ? 40 : 48, y);
    });
}

QPixmap validate() {
    return draw({72, 72}, [](QPainter& p) {
        QRadialGradient fill(QPointF(28, 24), 44);
        fill.setColorAt(0, QColor(0x66, 0xBB, 0x6A));
        fill.setColorAt(1, QColor(0x2E, 0x7D, 0x32));
        p.setBrush(fill);
        p.setPen(QPen(QColor(0x1B, 0x5E, 0x20), 2));
        p.drawEllipse(QRectF(3, 3, 66, 66));
        p.setPen(QPen(Qt::white, 7, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        const QPointF tick[] = {{20, 37}, {31, 48}, {52, 25}};
        p.drawPolyline(tick, 3);
    });
}

QPixmap labelPrinter() {
    return draw({120, 110}, [](QPainter& p) {
        // The labels coming out in front, on their backing strip.
        p.setPen(QPen(QColor(0x90, 0xA4, 0xAE), 1));
        p.setBrush(QColor(0xEC, 0xEF, 0xF1));
        p.drawRect(QRectF(34, 62, 52, 44));
        p.setBrush(Qt::white);
        for (double y : {66.0, 86.0}) p.drawRoundedRect(QRectF(38, y, 44, 16), 3, 3);
        p.setPen(QPen(QColor(0x60, 0x7D, 0x8B), 1.5));
        for (double y : {71.0, 91.0}) p.drawLine(QPointF(44, y), QPointF(70, y));
        // The printer's body and its slot.
        QLinearGradient body(QPointF(0, 8), QPointF(0, 64));
        body.setColorAt(0, QColor(0x78, 0x90, 0x9C));
        body.setColorAt(1, QColor(0x45, 0x5A, 0x64));
        p.setBrush(body);
        p.setPen(QPen(QColor(0x37, 0x47, 0x4F), 1.5));
        p.drawRoundedRect(QRectF(10, 8, 100, 56), 10, 10);
        p.setBrush(QColor(0x26, 0x32, 0x38));
        p.drawRoundedRect(QRectF(30, 54, 60, 6), 2, 2);
        p.setBrush(QColor(0x66, 0xBB, 0x6A));
        p.setPen(Qt::NoPen);
        p.drawEllipse(QRectF(92, 16, 8, 8));
    });
}
}  // namespace pictures
