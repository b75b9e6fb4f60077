#pragma once
// Small builders for the fixed parts of a screen: named texts, rounded cards
// behind groups of controls, the screen's background.
#include <QColor>
#include <QRect>
#include <QString>

class QLabel;
class QWidget;
class Screen;

struct TextStyle {
    int pointSize = 11;
    bool bold = false;
    bool italic = false;
    Qt::Alignment align = Qt::AlignLeft | Qt::AlignTop;
    QColor colour = QColor();  // invalid: the palette's
};

// The light blue-grey behind every full screen of the tool.
inline const QColor screenBackground{0xe6, 0xec, 0xf3};

QLabel* addText(Screen& form, const QString& name, const QString& text, const QRect& where,
                const TextStyle& style = {});
// A rounded panel painted behind the controls that stand on it.
QWidget* addCard(Screen& form, const QRect& where, const QColor& fill = Qt::white);
void setBackground(QWidget& form, const QColor& colour);
