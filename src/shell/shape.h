#pragma once
// The suite's shape control: a rectangle drawn with a border of its own
// colour and width, filled or see-through. It takes no clicks, so a label
// laid over it gets them.
#include <QColor>
#include <QWidget>

class Shape : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QColor borderColor READ borderColor WRITE setBorderColor)
    Q_PROPERTY(QColor fillColor READ fillColor WRITE setFillColor)
  public:
    explicit Shape(QWidget* parent = nullptr);

    QColor borderColor() const { return border_; }
    void setBorderColor(const QColor& colour);
    QColor fillColor() const { return fill_; }  // invalid: see-through
    void setFillColor(const QColor& colour);
    void setBorderWidth(int pixels);
    void setRound(bool round);         // an oval
    void setCornerRadius(int pixels);  // a rounded rectangle

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QColor border_{Qt::black};
    QColor fill_;
    int borderWidth_ = 1;
    bool round_ = false;
    int cornerRadius_ = 0;
};

// The background of a control in the suite's blue-green-red colour number
// (0xC0E0FF is a light orange), painted behind its text.
void setBackColor(QWidget& control, int number);
