#include "labels/bienvenu015_layout.h"

#include "labels/bienvenu015_formats.h"
#include "shell/colours.h"
#include "shell/form_parts.h"
#include "shell/placing.h"
#include "shell/screen.h"
#include "shell/shape.h"

namespace bienvenu015_layout {
namespace {

constexpr int margin = 48;  // inside the frame's 32-pixel border
constexpr int column = 144;
constexpr int a4Left = 220;  // the five A4 formats, after the ticket
constexpr int a4Gap = 9;
constexpr int cardTop = 172;
constexpr int cardHeight = 206;
constexpr int textTop = cardTop + cardHeight + 8;

QLabel* text(Screen& form, const QString& name, const QString& caption, QRect where, int pointSize,
             bool bold = false, Qt::Alignment align = Qt::AlignLeft | Qt::AlignTop) {
    return addText(form, name, caption, where,
                   {.pointSize = pointSize, .bold = bold, .align = align});
}

// One format: its frame, its picture in front of it, its text below.
void format(Screen& form, const InvoiceFormat& f, int left) {
    // Shape2(i): a white card whose border shows the selection.
    auto* frame = form.make<Shape>(arrayName(QStringLiteral("Shape2"), f.value));
    frame->setGeometry(left, cardTop, column, cardHeight);
    frame->setBorderWidth(3);
    frame->setCornerRadius(8);
    frame->setFillColor(Qt::white);

    auto* image = form.make<ClickLabel>(QString::fromLatin1(f.image));
    image->setGeometry(
        QRect(QPoint(left + (column - pictureSize.width()) / 2, cardTop + 8), pictureSize));
    image->setAlignment(Qt::AlignCenter);
    image->setCursor(Qt::PointingHandCursor);
    if (f.value != 0) image->setToolTip(QStringLiteral("Continuer l'installation"));

    text(form, QString::fromLatin1(f.textControl), QString::fromUtf8(f.text),
         QRect(left, textTop, column, 150), 9, false, Qt::AlignHCenter | Qt::AlignTop);
}

}  // namespace

void build(Screen& form) {
    setBackground(form, screenBackground);

    text(form, QStringLiteral("Label1"),
         QStringLiteral("Aide à l'installation de votre logiciel de Caisse"),
         QRect(margin, 40, 928, 36), 20, true);
    text(form, QStringLiteral("Label2(0)"),
         QStringLiteral("Si vous imprimez des factures en plus des tickets de caisse ou si vous "
                        "n'utilisez qu'une imprimante au format A4 (Laser ou Jet d'Encre) , "
                        "choisissez le format d'impression :"),
         QRect(margin, 84, 928, 44), 11);
    text(form, QStringLiteral("Label2(2)"), QStringLiteral("Facture Ticket"),
         QRect(margin, 140, column, 24), 12, true, Qt::AlignCenter);
    text(form, QStringLiteral("Label2(1)"), QStringLiteral("Impression sur Imprimante Normale A4"),
         QRect(a4Left, 140, 5 * column + 4 * a4Gap, 24), 12, true, Qt::AlignCenter);

    // The ticket on its own, then the A4 formats: white paper from the full
    // page down to the third, then the two over a graphic background.
    format(form, invoiceFormats[0], margin);
    int left = a4Left;
    for (int value : {2, 1, 4, 3, 5}) {
        format(form, invoiceFormats[value], left);
        left += column + a4Gap;
    }

    QLabel* hint =
        text(form, QStringLiteral("Label3(4)"),
             QStringLiteral("Cliquez sur le format choisi et sur le bouton valider pour confirmer "
                            "votre choix."),
             QRect(margin, 532, 928, 26), 11, false, Qt::AlignCenter);
    QFont italic = hint->font();
    italic.setItalic(true);
    hint->setFont(italic);

    // "Fin" on the left; "Marges" on the right with what it is for beside it.
    constexpr int barTop = 604;
    form.prepareBar(2, QPoint(margin, barTop), 100);
    const QPoint margins(designWidth - margin - Screen::barSlotSize.width(), barTop);
    form.bt_prog[1]->move(margins);
    form.im_prog[1]->move(margins);
    form.li_prog[1]->move(margins);
    text(form, QStringLiteral("Label3(6)"),
         QStringLiteral("Règlage de marge pour les facturettes demi A4 et 1/3"),
         QRect(margins.x() - 376, barTop + 24, 360, 28), 10, false,
         Qt::AlignRight | Qt::AlignVCenter);
}

}  // namespace bienvenu015_layout
