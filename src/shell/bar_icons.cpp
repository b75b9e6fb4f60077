// The icons of the bar, drawn on a 48 by 48 grid and scaled to the icon size.
#include <QPainter>
#include <QPainterPath>
#include <QtMath>
#include <functional>
#include <map>

#include "shell/bank_pictures.h"

namespace pictures {
namespace {
using Painting = std::function<void(QPainter&)>;

QPen stroke(const QColor& colour, qreal width) {
    return QPen(colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

const QColor ink(0x37, 0x47, 0x4F);

void printer(QPainter& p) {
    p.setPen(stroke(ink, 1.5));
    p.setBrush(Qt::white);
    p.drawRect(QRectF(14, 5, 20, 15));  // paper waiting
    QLinearGradient body(0, 17, 0, 35);
    body.setColorAt(0, QColor(0x78, 0x90, 0x9C));
    body.setColorAt(1, QColor(0x45, 0x5A, 0x64));
    p.setBrush(body);
    p.drawRoundedRect(QRectF(5, 17, 38, 18), 4, 4);
    p.setBrush(Qt::white);
    p.drawRect(QRectF(13, 29, 22, 15));  // the printed sheet
    p.setPen(stroke(QColor(0x90, 0xA4, 0xAE), 1.5));
    p.drawLine(QPointF(16, 34), QPointF(32, 34));
    p.drawLine(QPointF(16, 38.5), QPointF(28, 38.5));
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0x66, 0xFF, 0x66));
    p.drawEllipse(QRectF(36, 21, 4, 4));
}

void tick(QPainter& p, const QColor& colour, qreal width) {
    p.setPen(stroke(colour, width));
    const QPointF points[] = {{10, 25}, {20, 35}, {39, 12}};
    p.drawPolyline(points, 3);
}

const std::map<int, Painting>& paintings() {
    static const std::map<int, Painting> all = {
        {0,  // a serial plug
         [](QPainter& p) {
             p.setPen(stroke(ink, 5));
             p.drawLine(QPointF(24, 31), QPointF(24, 45));
             p.setPen(stroke(ink, 1.8));
             p.setBrush(QColor(0xB0, 0xBE, 0xC5));
             const QPointF shell[] = {{4, 12}, {44, 12}, {39, 31}, {9, 31}};
             p.drawPolygon(shell, 4);
             p.setBrush(QColor(0xFF, 0xC1, 0x07));
             p.setPen(Qt::NoPen);
             for (int k = 0; k < 5; ++k) p.drawEllipse(QPointF(12 + 6 * k, 18), 2, 2);
             for (int k = 0; k < 4; ++k) p.drawEllipse(QPointF(15 + 6 * k, 25), 2, 2);
         }},
        {49,  // a gear
         [](QPainter& p) {
             QPainterPath gear;
             const int teeth = 8;
             for (int k = 0; k < 2 * teeth; ++k) {
                 const qreal a0 = (k - 0.5) * M_PI / teeth, a1 = (k + 0.5) * M_PI / teeth;
                 const qreal r = k % 2 ? 15 : 20;
                 const QPointF q0(24 + r * qCos(a0), 24 + r * qSin(a0));
                 const QPointF q1(24 + r * qCos(a1), 24 + r * qSin(a1));
                 if (k == 0)
                     gear.moveTo(q0);
                 else
                     gear.lineTo(q0);
                 gear.lineTo(q1);
             }
             gear.closeSubpath();
             QPainterPath hole;
             hole.addEllipse(QPointF(24, 24), 6, 6);
             p.setPen(stroke(ink, 1.5));
             p.setBrush(QColor(0x60, 0x7D, 0x8B));
             p.drawPath(gear.subtracted(hole));
         }},
        {99, printer},
        {106,  // a cash drawer, open, with coins
         [](QPainter& p) {
             p.setPen(stroke(ink, 1.5));
             p.setBrush(QColor(0xB0, 0xBE, 0xC5));
             const QPointF tray[] = {{9, 12}, {39, 12}, {44, 22}, {4, 22}};
             p.drawPolygon(tray, 4);
             p.setBrush(QColor(0xFF, 0xC1, 0x07));
             p.drawEllipse(QRectF(12, 14, 7, 5));
             p.drawEllipse(QRectF(21, 14, 7, 5));
             p.setBrush(QColor(0x81, 0xC7, 0x84));
             p.drawRect(QRectF(30, 14, 7, 5));
             QLinearGradient front(0, 22, 0, 40);
             front.setColorAt(0, QColor(0x79, 0x86, 0x8C));
             front.setColorAt(1, QColor(0x45, 0x5A, 0x64));
             p.setBrush(front);
             p.drawRoundedRect(QRectF(4, 22, 40, 18), 2, 2);
             p.setBrush(QColor(0x26, 0x32, 0x38));
             p.drawRoundedRect(QRectF(18, 28, 12, 4), 2, 2);
         }},
        {108,  // a door left open, and the way out
         [](QPainter& p) {
             p.setPen(stroke(ink, 1.5));
             p.setBrush(QColor(0x26, 0x32, 0x38));
             p.drawRect(QRectF(7, 5, 22, 38));
             p.setBrush(QColor(0xA1, 0x88, 0x7F));
             const QPointF leaf[] = {{7, 5}, {19, 9}, {19, 46}, {7, 43}};
             p.drawPolygon(leaf, 4);
             p.setBrush(QColor(0xFF, 0xC1, 0x07));
             p.setPen(Qt::NoPen);
             p.drawEllipse(QPointF(16, 27), 1.6, 1.6);
             p.setPen(stroke(QColor(0xD3, 0x2F, 0x2F), 4.5));
             p.drawLine(QPointF(25, 24), QPointF(42, 24));
             const QPointF head[] = {{35, 17}, {43, 24}, {35, 31}};
             p.drawPolyline(head, 3);
         }},
        {124, [](QPainter& p) { tick(p, QColor(0x2E, 0x8B, 0x3E), 7); }},
        {125,  // a printer, chosen
         [](QPainter& p) {
             p.save();
             p.scale(0.8, 0.8);
             printer(p);
             p.restore();
             p.setPen(stroke(Qt::white, 1.5));
             p.setBrush(QColor(0x2E, 0x8B, 0x3E));
             p.drawEllipse(QRectF(27, 27, 19, 19));
             p.setPen(stroke(Qt::white, 3));
             const QPointF mark[] = {{31.5, 36.5}, {35, 40}, {41.5, 32.5}};
             p.drawPolyline(mark, 3);
         }},
        {126,  // a keyboard
         [](QPainter& p) {
             p.setPen(stroke(ink, 1.5));
             p.setBrush(QColor(0x54, 0x6E, 0x7A));
             p.drawRoundedRect(QRectF(3, 11, 42, 27), 4, 4);
             p.setPen(Qt::NoPen);
             p.setBrush(QColor(0xEC, 0xEF, 0xF1));
             for (int row = 0; row < 2; ++row)
                 for (int k = 0; k < 7; ++k)
                     p.drawRoundedRect(QRectF(6.5 + 5.3 * k + row, 14.5 + 6 * row, 4, 4), 1, 1);
             p.drawRoundedRect(QRectF(14, 27, 20, 4), 1, 1);
             p.drawRoundedRect(QRectF(6.5, 27, 5, 4), 1, 1);
             p.drawRoundedRect(QRectF(36.5, 27, 5, 4), 1, 1);
         }},
        {127,  // a magnifier
         [](QPainter& p) {
             p.setPen(stroke(QColor(0x5D, 0x40, 0x37), 7));
             p.drawLine(QPointF(29, 29), QPointF(41, 41));
             p.setPen(stroke(ink, 4));
             p.setBrush(QColor(0xB3, 0xE5, 0xFC));
             p.drawEllipse(QPointF(20, 20), 12, 12);
             p.setPen(stroke(Qt::white, 2.5));
             p.drawArc(QRectF(13, 13, 14, 14), 100 * 16, 70 * 16);
         }},
        {128,  // the arrow that goes on
         [](QPainter& p) {
             p.setPen(stroke(QColor(0x0D, 0x47, 0xA1), 1.5));
             p.setBrush(QColor(0x1E, 0x88, 0xE5));
             const QPointF arrow[] = {{6, 18},  {25, 18}, {25, 8}, {43, 24},
                                      {25, 40}, {25, 30}, {6, 30}};
             p.drawPolygon(arrow, 7);
         }},
        {129,  // a cross
         [](QPainter& p) {
             p.setPen(stroke(QColor(0xC6, 0x28, 0x28), 7));
             p.drawLine(QPointF(12, 12), QPointF(36, 36));
             p.drawLine(QPointF(36, 12), QPointF(12, 36));
         }},
        {146,  // settings sliders
         [](QPainter& p) {
             const QColor knobs[] = {QColor(0xFB, 0x8C, 0x00), QColor(0x1E, 0x88, 0xE5),
                                     QColor(0x43, 0xA0, 0x47)};
             const qreal at[] = {30, 14, 24};
             for (int k = 0; k < 3; ++k) {
                 const qreal y = 11 + 13 * k;
                 p.setPen(stroke(ink, 3));
                 p.drawLine(QPointF(6, y), QPointF(42, y));
                 p.setPen(stroke(ink, 1.5));
                 p.setBrush(knobs[k]);
                 p.drawEllipse(QPointF(at[k], y), 5, 5);
             }
         }},
    };
    return all;
}
}  // namespace

QPixmap barIcon(int number) {
    const auto it = paintings().find(number);
    if (it == paintings().end()) return {};
    QPixmap picture(barIconSize, barIconSize);
    picture.fill(Qt::transparent);
    QPainter p(&picture);
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(barIconSize / 48.0, barIconSize / 48.0);
    it->second(p);
    return picture;
}
}  // namespace pictures
