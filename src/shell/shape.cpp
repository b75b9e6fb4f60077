#include "shell/shape.h"

#include <QPainter>

#include "shell/colours.h"

Shape::Shape(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void Shape::setBorderColor(const QColor& colour) {
    border_ = colour;
    update();
}

void Shape::setFillColor(const QColor& colour) {
    fill_ = colour;
    update();
}

void Shape::setBorderWidth(int pixels) {
    borderWidth_ = pixels;
    update();
}

void Shape::setRound(bool round) {
    round_ = round;
    update();
}

void Shape::setCornerRadius(int pixels) {
    cornerRadius_ = pixels;
    update();
}

void Shape::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing, round_ || cornerRadius_ > 0);
    painter.setPen(QPen(border_, borderWidth_, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.setBrush(fill_.isValid() ? QBrush(fill_) : QBrush(Qt::NoBrush));
    const qreal half = borderWidth_ / 2.0;
    const QRectF inside = QRectF(rect()).adjusted(half, half, -half, -half);
    if (round_)
        painter.drawEllipse(inside);
    else if (cornerRadius_ > 0)
        painter.drawRoundedRect(inside, cornerRadius_, cornerRadius_);
    else
        painter.drawRect(inside);
}

void setBackColor(QWidget& control, int number) {
    QPalette palette = control.palette();
    palette.setColor(QPalette::Window, colourFromNumber(number));
    control.setPalette(palette);
    control.setAutoFillBackground(true);
}
