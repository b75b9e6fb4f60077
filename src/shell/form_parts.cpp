#include "shell/form_parts.h"

#include <QLabel>
#include <QPainter>

#include "shell/screen.h"

namespace {
class Card : public QWidget {
  public:
    Card(QWidget* parent, QColor fill) : QWidget(parent), fill_(fill) {}

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QColor(0xb8, 0xc4, 0xd0));
        painter.setBrush(fill_);
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 10, 10);
    }

  private:
    QColor fill_;
};
}  // namespace

QLabel* addText(Screen& form, const QString& name, const QString& text, const QRect& where,
                const TextStyle& style) {
    auto* label = form.make<QLabel>(name);
    label->setText(text);
    label->setGeometry(where);
    label->setWordWrap(true);
    label->setAlignment(style.align);
    QFont font = label->font();
    font.setPointSize(style.pointSize);
    font.setBold(style.bold);
    font.setItalic(style.italic);
    label->setFont(font);
    if (style.colour.isValid()) {
        QPalette palette = label->palette();
        palette.setColor(QPalette::WindowText, style.colour);
        label->setPalette(palette);
    }
    return label;
}

QWidget* addCard(Screen& form, const QRect& where, const QColor& fill) {
    auto* card = new Card(&form, fill);
    card->setGeometry(where);
    card->lower();
    return card;
}

void setBackground(QWidget& form, const QColor& colour) {
    form.setAutoFillBackground(true);
    QPalette palette = form.palette();
    palette.setColor(QPalette::Window, colour);
    form.setPalette(palette);
}
