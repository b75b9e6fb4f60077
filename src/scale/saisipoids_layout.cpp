#include "scale/saisipoids_layout.h"

#include <QLineEdit>
#include <QListWidget>

#include "shell/form_parts.h"
#include "shell/placing.h"
#include "shell/screen.h"

namespace saisipoids_layout {
namespace {

constexpr int margin = 48;  // inside the frame's 32-pixel border
constexpr int valueWidth = 200;
constexpr int unitLeft = margin + 24 + valueWidth + 8;

// The keypad stands in a panel of its own; rows are 1110 twips apart, and a
// key's caption stands a little below the top of its face.
constexpr QPoint keypadAt(452, 112);
constexpr int keyStep = 78;
constexpr QSize keyFace(72, 70);
constexpr int faceTop[] = {0, 1110, 2220, 3330};
constexpr int captionTop[] = {180, 1260, 2370, 3480};

struct Key {
    int index;
    int row;
    int column;
    int span;  // in columns
    const char* caption;
};
// 1-2-3 on top as on a telephone; the calculator order of charge_bouton
// swaps the first and third rows. Key 15 has no place on this pad.
constexpr Key keys[] = {
    {1, 0, 0, 1, "1"},  {2, 0, 1, 1, "2"},  {3, 0, 2, 1, "3"},
    {12, 0, 3, 1, "C"}, {4, 1, 0, 1, "4"},  {5, 1, 1, 1, "5"},
    {6, 1, 2, 1, "6"},  {13, 1, 3, 1, ""},  {7, 2, 0, 1, "7"},
    {8, 2, 1, 1, "8"},  {9, 2, 2, 1, "9"},  {14, 2, 3, 1, "*"},
    {0, 3, 0, 2, "0"},  {11, 3, 2, 1, "."}, {10, 3, 3, 1, "Effacer Tout"},
};

template <class Label = QLabel>
Label* text(Screen& form, const char* name, const QString& caption, QRect where, int pointSize,
            bool bold = false) {
    auto* label = form.make<Label>(QString::fromLatin1(name));
    label->setText(caption);
    label->setGeometry(where);
    label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    label->setWordWrap(true);
    QFont font(QStringLiteral("Arial"), pointSize);
    font.setBold(bold);
    label->setFont(font);
    return label;
}

// A value the screen shows: large, on a white field.
QLabel* valueBox(Screen& form, const char* name, const QString& caption, QRect where,
                 int pointSize) {
    QLabel* box = text(form, name, caption, where, pointSize, true);
    box->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    box->setWordWrap(false);
    box->setMargin(8);
    box->setFrameShape(QFrame::Box);
    box->setAutoFillBackground(true);
    QPalette palette = box->palette();
    palette.setColor(QPalette::Window, Qt::white);
    palette.setColor(QPalette::WindowText, QColor(0x1A, 0x23, 0x7E));
    box->setPalette(palette);
    return box;
}

void keypad(Screen& form) {
    auto* pad = new QWidget(&form);
    pad->setObjectName(QStringLiteral("pave"));
    pad->setGeometry(QRect(keypadAt, QSize(4 * keyStep, px(faceTop[3]) + keyFace.height())));
    for (const Key& k : keys) {
        const int left = k.column * keyStep;
        const int width = keyFace.width() + (k.span - 1) * keyStep;
        auto* face = form.make<ClickLabel>(arrayName(QStringLiteral("ifondc"), k.index), pad);
        face->setGeometry(left, px(faceTop[k.row]), width, keyFace.height());
        face->setScaledContents(true);
        face->setCursor(Qt::PointingHandCursor);
        auto* caption = form.make<ClickLabel>(arrayName(QStringLiteral("Label17"), k.index), pad);
        caption->setGeometry(left, px(captionTop[k.row]), width, keyFace.height() - 16);
        caption->setText(QString::fromUtf8(k.caption));
        caption->setAlignment(Qt::AlignCenter);
        caption->setWordWrap(true);
        caption->setCursor(Qt::PointingHandCursor);
        QFont font(QStringLiteral("Arial"), 9);
        font.setBold(true);
        caption->setFont(font);
    }
    form.findChild<QLabel*>(QStringLiteral("Label17(13)"))
        ->setToolTip(QStringLiteral("Change le signe de la quantité"));
    // Key 15 exists, as the suite's keypad has it, but stands nowhere.
    form.make<ClickLabel>(QStringLiteral("ifondc(15)"), pad)->hide();
    form.make<ClickLabel>(QStringLiteral("Label17(15)"), pad)->hide();
}

}  // namespace

void build(Screen& form) {
    setBackground(form, screenBackground);

    text(form, "Label5", QStringLiteral("Saisissez la Quantité"), QRect(margin, 40, 600, 32), 18,
         true);
    text(form, "Label13",
         QStringLiteral("Utilisez le clavier ou le pavé tactile et validez le montant."),
         QRect(margin, 74, 700, 24), 10);

    // Price, quantity and total, one under the other, each with its unit.
    text(form, "Label10", QStringLiteral("Prix Unitaire"), QRect(margin, 112, 300, 22), 11, true);
    valueBox(form, "Label4", QStringLiteral("0.00"), QRect(margin + 24, 136, valueWidth, 44), 18);
    text(form, "Label7", QString(), QRect(unitLeft, 136, 28, 44), 14, true);
    text(form, "barre_unite", QStringLiteral("/"), QRect(unitLeft + 28, 136, 12, 44), 14);
    text(form, "Label14", QString(), QRect(unitLeft + 42, 136, 120, 44), 14, true);

    text(form, "Label11", QStringLiteral("Quantité"), QRect(margin, 200, 300, 22), 11, true);
    QLabel* sign = text(form, "Label15", QString(), QRect(margin, 224, 24, 56), 24, true);
    sign->setAlignment(Qt::AlignCenter);
    valueBox(form, "Label2", QString(), QRect(margin + 24, 224, valueWidth, 56), 22);
    text(form, "Label8", QString(), QRect(unitLeft, 224, 160, 56), 14, true);

    text(form, "Label12", QStringLiteral("Montant Total"), QRect(margin, 300, 300, 22), 11, true);
    valueBox(form, "Label6", QString(), QRect(margin + 24, 324, valueWidth, 56), 22);
    text(form, "Label9", QString(), QRect(unitLeft, 324, 60, 56), 14, true);

    keypad(form);

    // What a connected scale would use: the box a reading arrives in, the
    // list of readings and the hint to read again, all hidden.
    auto* reading = form.make<QLineEdit>(QStringLiteral("Text1"));
    reading->setGeometry(margin, 400, 120, 24);
    reading->hide();
    auto* readings = form.make<QListWidget>(QStringLiteral("List1"));
    readings->setGeometry(margin, 400, 380, 100);
    readings->hide();
    auto* picture = form.make<ClickLabel>(QStringLiteral("Picture1"));
    picture->setGeometry(margin, 396, 48, 48);
    picture->setScaledContents(true);
    picture->hide();
    auto* hint =
        text<ClickLabel>(form, "Label53",
                         QStringLiteral("<= Cliquez ici pour relancer une nouvelle lecture de la "
                                        "balance connectée."),
                         QRect(margin + 56, 396, 340, 48), 10);
    hint->hide();

    // Slot 0 is made with the others but never set up.
    const int barTop = form.height() - 32 - 16 - Screen::barSlotSize.height();
    form.prepareBar(3, QPoint(form.width() - margin - 80 - 2 * 100, barTop), 100);
}

}  // namespace saisipoids_layout
