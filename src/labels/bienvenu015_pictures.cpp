#include "labels/bienvenu015_pictures.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

namespace {

const QColor ink(0x60, 0x7D, 0x8B);
const QColor faintInk(0xB0, 0xBE, 0xC5);
const QColor frameInk(0x45, 0x5A, 0x64);
const QColor teal(0x1F, 0x7A, 0x8C);
const QColor tealLight(0xCF, 0xEA, 0xEE);
const QColor amber(0xF2, 0xA5, 0x41);
const QColor badgeBlue(0x2C, 0x4A, 0x6E);

// A sheet of paper with a soft shadow.
void paper(QPainter& p, const QRectF& r) {
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0, 0, 0, 40));
    p.drawRect(r.translated(2, 2));
    p.setBrush(Qt::white);
    p.setPen(QPen(QColor(0x90, 0xA4, 0xAE), 1));
    p.drawRect(r);
}

// A line of text, as a short grey bar.
void textLine(QPainter& p, qreal x, qreal y, qreal length, const QColor& colour, qreal weight) {
    p.setPen(QPen(colour, weight, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(x, y), QPointF(x + length, y));
}

// One invoice laid out in the rectangle: the shop's name, the customer's
// address, the table of articles and the total. On a graphic background the
// frames are coloured and a band runs along the top and the bottom.
void invoice(QPainter& p, const QRectF& r, bool graphic, qreal opacity) {
    p.save();
    p.setOpacity(opacity);
    const qreal w = r.width(), h = r.height();
    const auto at = [&](qreal fx, qreal fy) { return QPointF(r.x() + fx * w, r.y() + fy * h); };
    const auto box = [&](qreal fx, qreal fy, qreal fw, qreal fh) {
        return QRectF(at(fx, fy), QSizeF(fw * w, fh * h));
    };
    const qreal thin = qMax<qreal>(0.8, h / 160);
    if (graphic) {
        QPainterPath top;
        top.moveTo(at(0, 0));
        top.lineTo(at(1, 0));
        top.lineTo(at(1, 0.12));
        top.cubicTo(at(0.7, 0.2), at(0.35, 0.04), at(0, 0.16));
        top.closeSubpath();
        QLinearGradient fill(at(0, 0), at(1, 0));
        fill.setColorAt(0, teal);
        fill.setColorAt(1, teal.lighter(150));
        p.fillPath(top, fill);
        QPainterPath bottom;
        bottom.moveTo(at(0, 1));
        bottom.lineTo(at(0, 0.93));
        bottom.cubicTo(at(0.3, 0.88), at(0.65, 0.99), at(1, 0.9));
        bottom.lineTo(at(1, 1));
        bottom.closeSubpath();
        p.fillPath(bottom, amber);
        p.setPen(Qt::NoPen);
        p.setBrush(Qt::white);
        p.drawEllipse(box(0.07, 0.03, 0.14, 0.14 * w / h));
    } else {
        p.setPen(QPen(frameInk, thin));
        p.setBrush(Qt::NoBrush);
        p.drawRect(box(0.07, 0.05, 0.3, 0.1));
    }
    textLine(p, at(0.07, 0.22).x(), at(0, 0.22).y(), 0.26 * w, graphic ? teal : ink, 2 * thin);

    // The customer's address.
    p.setPen(QPen(graphic ? teal : frameInk, thin));
    p.setBrush(graphic ? QBrush(tealLight) : QBrush(Qt::NoBrush));
    const qreal round = graphic ? 0.03 * w : 0;
    p.drawRoundedRect(box(0.55, 0.2, 0.38, 0.14), round, round);
    for (int k = 0; k < 2; ++k)
        textLine(p, at(0.6, 0).x(), at(0, 0.25 + 0.045 * k).y(), 0.22 * w, ink, thin);

    // The articles: a heading row, three columns, a few lines.
    const QRectF table = box(0.07, 0.4, 0.86, 0.38);
    p.setPen(QPen(graphic ? teal : frameInk, thin));
    p.setBrush(Qt::NoBrush);
    p.drawRoundedRect(table, round, round);
    const QRectF heading(table.topLeft(), QSizeF(table.width(), table.height() * 0.16));
    p.fillRect(heading.adjusted(thin, thin, -thin, 0), graphic ? teal : QColor(0xE3, 0xE8, 0xEC));
    for (qreal fx : {0.55, 0.72}) {
        const qreal x = table.x() + fx * table.width();
        p.drawLine(QPointF(x, table.top()), QPointF(x, table.bottom()));
    }
    const int lines = h >= 100 ? 5 : 3;
    for (int k = 0; k < lines; ++k) {
        const qreal y =
            heading.bottom() + (k + 0.8) * (table.bottom() - heading.bottom()) / (lines + 0.6);
        textLine(p, table.x() + 0.05 * table.width(), y, 0.38 * table.width(), ink, thin);
        textLine(p, table.x() + 0.78 * table.width(), y, 0.16 * table.width(), ink, thin);
    }

    // The total.
    p.setPen(QPen(graphic ? teal : frameInk, 1.4 * thin));
    p.setBrush(graphic ? QBrush(tealLight) : QBrush(Qt::NoBrush));
    p.drawRoundedRect(box(0.58, 0.82, 0.35, 0.09), round, round);
    textLine(p, at(0.63, 0).x(), at(0, 0.865).y(), 0.24 * w, frameInk, 2 * thin);
    p.restore();
}

// A dashed line across the page where it is cut.
void cut(QPainter& p, const QRectF& page, qreal y) {
    p.setPen(QPen(QColor(0x78, 0x90, 0x9C), 1, Qt::DashLine));
    p.drawLine(QPointF(page.left() + 2, y), QPointF(page.right() - 2, y));
}

// A page cut in `parts`; the first part holds the invoice, the others a
// pale copy of it, since the same sheet takes the next invoices.
void cutPage(QPainter& p, const QRectF& page, int parts, bool graphic) {
    paper(p, page);
    const qreal part = page.height() / parts;
    for (int k = 0; k < parts; ++k) {
        const QRectF area(page.x(), page.y() + k * part, page.width(), part);
        invoice(p, area.adjusted(1, 1, -1, -1), graphic, k == 0 ? 1.0 : 0.3);
        if (k > 0) cut(p, page, area.top());
    }
}

void ticket(QPainter& p, const QRectF& r) {
    QPainterPath strip;
    strip.moveTo(r.topLeft());
    strip.lineTo(r.topRight());
    strip.lineTo(r.right(), r.bottom() - 6);
    const qreal tooth = r.width() / 8;
    for (qreal x = r.right(); x > r.left() + 1; x -= tooth) {
        strip.lineTo(x - tooth / 2, r.bottom());
        strip.lineTo(x - tooth, r.bottom() - 6);
    }
    strip.closeSubpath();
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0, 0, 0, 40));
    p.drawPath(strip.translated(2, 2));
    p.setPen(QPen(QColor(0x90, 0xA4, 0xAE), 1));
    p.setBrush(Qt::white);
    p.drawPath(strip);

    const qreal left = r.x() + 8, width = r.width() - 16;
    textLine(p, left + width * 0.2, r.y() + 12, width * 0.6, frameInk, 3);
    textLine(p, left + width * 0.25, r.y() + 20, width * 0.5, ink, 1);
    qreal y = r.y() + 32;
    p.setPen(QPen(faintInk, 1, Qt::DotLine));
    p.drawLine(QPointF(left, y), QPointF(left + width, y));
    for (int k = 0; k < 7; ++k) {
        y += 9;
        textLine(p, left, y, width * (k % 3 == 1 ? 0.45 : 0.6), ink, 1);
        textLine(p, left + width * 0.78, y, width * 0.22, ink, 1);
    }
    y += 10;
    p.setPen(QPen(faintInk, 1, Qt::DotLine));
    p.drawLine(QPointF(left, y), QPointF(left + width, y));
    y += 10;
    textLine(p, left, y, width * 0.35, frameInk, 2.5);
    textLine(p, left + width * 0.65, y, width * 0.35, frameInk, 2.5);
    // A bar code.
    y += 10;
    p.setPen(Qt::NoPen);
    p.setBrush(frameInk);
    for (qreal x = left + width * 0.15; x < left + width * 0.85; x += 2.5)
        p.drawRect(QRectF(x, y, int(x) % 3 ? 1 : 1.6, 9));
}

// What the picture shows, in a few letters, at its lower right.
void badge(QPainter& p, QSizeF size, const QString& text, const QColor& colour) {
    QFont font(QStringLiteral("Arial"));
    font.setBold(true);
    font.setPixelSize(11);
    p.setFont(font);
    const qreal width = QFontMetricsF(font).horizontalAdvance(text) + 10;
    const QRectF where(size.width() - width - 2, size.height() - 20, width, 17);
    p.setPen(Qt::NoPen);
    p.setBrush(colour);
    p.drawRoundedRect(where, 4, 4);
    p.setPen(Qt::white);
    p.drawText(where, Qt::AlignCenter, text);
}

}  // namespace

QPixmap drawnInvoiceFormat(int format, QSize size) {
    QPixmap picture(size);
    picture.fill(Qt::transparent);
    QPainter p(&picture);
    p.setRenderHint(QPainter::Antialiasing);
    const qreal h = size.height() - 6;
    const QRectF page((size.width() - h / 1.414) / 2, 2, h / 1.414, h);
    switch (format) {
        case 0:
            ticket(p, QRectF(size.width() / 2.0 - 30, 2, 60, h));
            badge(p, size, QStringLiteral("Ticket"), badgeBlue);
            break;
        case 1:
            cutPage(p, page, 2, false);
            badge(p, size, QStringLiteral("1/2 A4"), badgeBlue);
            break;
        case 2:
            cutPage(p, page, 1, false);
            badge(p, size, QStringLiteral("A4"), badgeBlue);
            break;
        case 3:
            cutPage(p, page, 1, true);
            badge(p, size, QStringLiteral("A4"), amber.darker(130));
            break;
        case 4:
            cutPage(p, page, 3, false);
            badge(p, size, QStringLiteral("1/3 A4"), badgeBlue);
            break;
        case 5:
            cutPage(p, page, 2, true);
            badge(p, size, QStringLiteral("1/2 A4"), amber.darker(130));
            break;
        default:
            break;
    }
    return picture;
}
