#pragma once
// The controls of bienvenu015 and where they stand on the 1024 by 738 design.
#include <QSize>
#include <QWidget>

class Screen;

// The frame around a format's picture (Shape2(i)): a white card whose border
// takes a colour of the suite, a 24-bit number in blue, green, red order.
class FormatFrame : public QWidget {
    Q_OBJECT
    Q_PROPERTY(int BorderColor READ borderColor WRITE setBorderColor)
  public:
    explicit FormatFrame(QWidget* parent) : QWidget(parent) {}
    int borderColor() const { return borderColor_; }
    void setBorderColor(int colour);

  protected:
    void paintEvent(QPaintEvent*) override;

  private:
    int borderColor_ = 0xE0E0E0;
};

namespace bienvenu015_layout {
// The size a format's picture is shown at.
inline constexpr QSize pictureSize{136, 190};
// Makes every control with its name, text and place, and the two bar slots.
void build(Screen& form);
}  // namespace bienvenu015_layout
