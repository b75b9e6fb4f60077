#include "shell/button_bar.h"

#include <QDir>
#include <QPalette>

#include "shell/colours.h"
#include "shell/context.h"
#include "shell/image_banks.h"
#include "shell/placing.h"
#include "shell/screen.h"
#include "store/codec.h"
#include "store/failure.h"
#include "store/numeric.h"
#include "store/switch_table.h"

namespace {
void setTextColour(QWidget& widget, const QColor& colour) {
    QPalette palette = widget.palette();
    palette.setColor(QPalette::WindowText, colour);
    widget.setPalette(palette);
}

RecordRef sales(int number) {
    return RecordRef{RecordFile::Sales, number};
}

// A picture file of the current directory; throws Failure when it is missing
// or not a picture.
QPixmap loadPicture(const QString& name) {
    QPixmap picture;
    if (!picture.load(QDir::current().filePath(name)))
        throw Failure(QStringLiteral("Fichier introuvable : %1").arg(name));
    return picture;
}

template <class W>
W& child(Screen& form, const QString& name, int index) {
    auto* widget = form.findChild<W*>(arrayName(name, index));
    if (!widget) throw Failure(QStringLiteral("Contrôle introuvable"));
    return *widget;
}
}  // namespace

void cree_bouton(Screen& form, const QString& definition) {
    const int n = int(numericValue(definition.mid(0, 3)));
    const int i = int(numericValue(definition.mid(4, 3)));
    Icc& icc = form.ctx.icc();

    ClickLabel* face = form.bt_prog.at(n);
    face->setPixmap(icc.btc.at(71));
    face->setEnabled(true);
    face->show();
    face->raise();

    QLabel* icon = form.im_prog.at(n);
    icon->setPixmap(icc.p11Picture(i));
    icon->move(face->pos());
    icon->show();
    icon->raise();

    ClickLabel* caption = form.li_prog.at(n);
    caption->setText(definition.mid(8));
    caption->setEnabled(true);
    setTextColour(*caption, colourFromNumber(form.ctx.couleur_theme[1]));
    caption->resize(caption->width(), face->height());
    caption->move(face->pos());
    caption->show();
    caption->raise();
}

void charge_theme(Context& ctx) {
    Icc& icc = ctx.icc();
    Icr& icr = ctx.icr();

    QByteArray choice;
    skip([&] { choice = ctx.get(rec::themePictures); });
    if (!choice.startsWith("##")) {
        choice = "##00:00:10:00:00:00";
        skip([&] { ctx.put(rec::themePictures, choice); });
    }
    const auto number = [&](int position) {
        return int(numericValue(choice.mid(position - 1, 2)));
    };
    skip([&] { icc.bt_fonc.set(46, pictureOf(icr.bxr, number(3))); });
    skip([&] { icc.btc.set(71, pictureOf(icr.bxm, number(6))); });
    skip([&] { icc.tclavv = pictureOf(icr.bxm, number(9)); });

    QByteArray custom;
    skip([&] { custom = ctx.get(rec::customPictures); });
    if (custom.startsWith("#P#")) {
        const auto wanted = [&](int position) { return custom.mid(position - 1, 1) == "1"; };
        // Positions 4 and 5 (persimg_000 and persimg_001) have no picture to
        // replace in this tool.
        if (wanted(6)) skip([&] { icc.ticket2 = loadPicture(QStringLiteral("persimg_002.gif")); });
        if (wanted(7)) {
            skip([&] { icr.bxr.set(13, loadPicture(QStringLiteral("persimg_003.gif"))); });
            skip([&] { icc.bt_fonc.set(46, pictureOf(icr.bxr, 13)); });
        }
        if (wanted(8)) {
            skip([&] { icr.bxm.set(16, loadPicture(QStringLiteral("persimg_004.gif"))); });
            skip([&] { icc.btc.set(71, pictureOf(icr.bxm, 16)); });
        }
        if (wanted(9)) skip([&] { icc.tclavv = loadPicture(QStringLiteral("persimg_005.gif")); });
    }

    QByteArray first;
    skip([&] { first = ctx.get(sales(rec::themeColourFirst)); });
    if (!first.startsWith("##")) {
        // The first colour, which says that the six are there, goes last: a
        // start cut before it writes the six again.
        for (int r = rec::themeColourLast; r >= rec::themeColourFirst; --r)
            skip([&] { ctx.put(sales(r), "##4210752"); });
    }
    for (int r = rec::themeColourFirst; r <= rec::themeColourLast; ++r)
        skip([&] {
            ctx.couleur_theme[r - rec::themeColourFirst + 1] =
                numericValue(ctx.get(sales(r)).mid(2));
        });
}

void charge_bouton(Screen& form) {
    Context& ctx = form.ctx;
    int size = 36;
    skip([&] {
        const QByteArray record = ctx.get(rec::keypadTextSize);
        if (record.startsWith("#I#")) size = int(numericValue(record.mid(3)));
    });
    QString family = QStringLiteral("Arial");
    skip([&] {
        const QString name = codec::boxText(ctx.get(rec::keypadFont)).trimmed();
        if (!name.isEmpty()) family = name;
    });
    const QColor colour = colourFromNumber(ctx.couleur_theme[1]);
    for (int i = 0; i <= 20; ++i) {
        skip([&] { child<QLabel>(form, QStringLiteral("ifondc"), i).setPixmap(ctx.icc().tclavv); });
        skip([&] {
            QLabel& key = child<QLabel>(form, QStringLiteral("Label17"), i);
            setTextColour(key, colour);
            if (i == 10) return;
            QFont font = key.font();
            font.setFamily(family);
            if (size <= 0) throw Failure(QStringLiteral("Taille de police incorrecte"));
            font.setPointSize(size);
            key.setFont(font);
        });
    }
    if (val_switch(ctx.switchs, 10) != 1) return;
    const auto moveTop = [&](const QString& name, int index, int twips) {
        skip([&] {
            QWidget& w = child<QWidget>(form, name, index);
            w.move(w.x(), px(twips));
        });
    };
    for (int i = 1; i <= 3; ++i) {
        moveTop(QStringLiteral("Label17"), i, 2370);
        moveTop(QStringLiteral("ifondc"), i, 2220);
    }
    for (int i = 7; i <= 9; ++i) {
        moveTop(QStringLiteral("Label17"), i, 180);
        moveTop(QStringLiteral("ifondc"), i, 0);
    }
}
