#include "startup/menuimp_layout.h"

#include <QFont>

#include "shell/form_parts.h"
#include "shell/placing.h"
#include "shell/screen.h"

namespace menuimp_layout {
namespace {

constexpr int margin = 48;  // inside the frame's 32-pixel border

QLabel* text(Screen& form, const char* name, const QString& caption, QRect where,
             int pointSize = 10, bool bold = false) {
    return addText(form, QString::fromLatin1(name), caption, where,
                   {.pointSize = pointSize, .bold = bold});
}

QLabel* picture(Screen& form, const char* name, QRect where) {
    auto* image = form.make<QLabel>(QString::fromLatin1(name));
    image->setGeometry(where);
    image->setAlignment(Qt::AlignCenter);
    return image;
}

void panel(Screen& form, const char* name, QRect where, QColor fill) {
    addCard(form, where, fill)->setObjectName(QString::fromLatin1(name));
}

// One of the two kinds of printer: a title, what it covers, and its picture
// on the right (a missing picture leaves only some calm space).
void printerKind(Screen& form, QRect where, const char* shape, const char* image,
                 const char* titleName, const QString& title, const char* bodyName,
                 const QString& body) {
    panel(form, shape, where, QColor(0xf4, 0xf7, 0xfb));
    picture(form, image, QRect(where.right() - 136, where.y() + 16, 120, 120));
    text(form, titleName, title, QRect(where.x() + 20, where.y() + 18, where.width() - 176, 30), 16,
         true);
    text(form, bodyName, body, QRect(where.x() + 20, where.y() + 58, where.width() - 176, 84), 11);
}

// One of the three choices: a card with its title, its text and its icon,
// and over it the transparent click area that forwards to the bar slot.
void choice(Screen& form, QRect where, const char* image, const char* titleName,
            const QString& title, const char* bodyName, const QString& body, const char* area) {
    panel(form, (QByteArray("Shape_") + area).constData(), where, Qt::white);
    picture(form, image, QRect(where.right() - 76, where.bottom() - 72, 60, 60));
    text(form, titleName, title, QRect(where.x() + 20, where.y() + 20, where.width() - 40, 30), 14,
         true);
    text(form, bodyName, body, QRect(where.x() + 20, where.y() + 62, where.width() - 100, 90), 11);
    auto* click = form.make<ClickLabel>(QString::fromLatin1(area));
    click->setGeometry(where);
    click->setCursor(Qt::PointingHandCursor);
    click->raise();
}

}  // namespace

void build(Screen& form) {
    setBackground(form, screenBackground);

    text(form, "Label1", QStringLiteral("Paramétrage de votre imprimante principale"),
         QRect(margin, 44, 600, 36), 20, true);
    QLabel* station = text(form, "Label14", QString(), QRect(640, 52, 336, 24), 11, true);
    station->setAlignment(Qt::AlignRight | Qt::AlignVCenter);

    printerKind(form, QRect(margin, 100, 456, 156), "Shape1", "Image1", "Label2",
                QStringLiteral("Imprimante Ticket"), "Label3",
                QStringLiteral("Toute imprimante utilisant des tickets thermiques ou papier d'une "
                               "largeur standard de 50 à 80 mm"));
    printerKind(form, QRect(520, 100, 456, 156), "Shape2", "Image3", "Label4",
                QStringLiteral("Autres Imprimantes"), "Label5",
                QStringLiteral("Toute imprimante classique laser ou jet d'encre permettant "
                               "d'imprimer des tickets/factures du format 1/3 au format A4."));

    choice(form, QRect(margin, 284, 296, 176), "Image8", "Label9",
           QStringLiteral("Installation Facile"), "Label10",
           QStringLiteral("Installation assistée, en quelques clicks vous installerez votre "
                          "imprimante ticket ou normale"),
           "Label8");
    choice(form, QRect(364, 284, 296, 176), "Image6", "Label11",
           QStringLiteral("Installation Technique"), "Label12",
           QStringLiteral("Installation en mode 'Expert', parametrage technique"), "Label7");
    choice(form, QRect(680, 284, 296, 176), "Image7", "Label13",
           QStringLiteral("Tester les ports série"), "Label16",
           QStringLiteral("Tester les ports série de votre poste"), "Label15");

    QLabel* hint =
        text(form, "Label6",
             QStringLiteral("Cliquez sur 'Installation Facile' ou 'Installation Technique', vous "
                            "pourrez revenir à ce parametrage ultérieurement."),
             QRect(margin, 510, 928, 40), 11);
    hint->setAlignment(Qt::AlignCenter);
    QFont italic = hint->font();
    italic.setItalic(true);
    hint->setFont(italic);

    // "Fin" stands alone on the left with its text beside it; the three
    // ways in stand on the right, under their cards.
    constexpr int barTop = 604;
    form.prepareBar(4, QPoint(margin, barTop), 100);
    for (int slot = 1; slot <= 3; ++slot) {
        const QPoint at(designWidth - margin - Screen::barSlotSize.width() - (3 - slot) * 100,
                        barTop);
        form.bt_prog[slot]->move(at);
        form.im_prog[slot]->move(at);
        form.li_prog[slot]->move(at);
    }
    QLabel* leave = text(form, "Label17", QStringLiteral("Sortie sans modification"),
                         QRect(margin + 96, barTop + 26, 240, 24), 10);
    leave->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

}  // namespace menuimp_layout
