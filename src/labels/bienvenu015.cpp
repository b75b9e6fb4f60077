#include "labels/bienvenu015.h"

#include <QDir>
#include <QPixmap>
#include <cmath>

#include "labels/bienvenu015_formats.h"
#include "labels/bienvenu015_layout.h"
#include "labels/bienvenu015_pictures.h"
#include "shell/button_bar.h"
#include "shell/colours.h"
#include "shell/context.h"
#include "shell/image_banks.h"
#include "shell/placing.h"
#include "shell/shape.h"
#include "store/failure.h"
#include "store/numeric.h"

namespace {

// Record 87 holds twentieths of a point; the user speaks in millimetres.
constexpr double twipsPerMillimetre = 56.7;
constexpr double lowestMargin = -50;
constexpr double highestMargin = 150;

constexpr int unselected = 0xE0E0E0;
constexpr int selected = 0x0000FF;  // red, in blue-green-red order

QByteArray wholeText(double value) {
    return formatZero(value).toLatin1();
}

}  // namespace

bienvenu015::bienvenu015(Context& context) : Screen(context, QStringLiteral("bienvenu015")) {
    setWindowTitle(QStringLiteral("Aide à l'installation de votre logiciel de Caisse"));
    resize(designWidth, designHeight);
    bienvenu015_layout::build(*this);
    for (const InvoiceFormat& f : invoiceFormats) {
        auto* image = findChild<ClickLabel*>(QString::fromLatin1(f.image));
        connect(image, &ClickLabel::clicked, this, [this, value = f.value] {
            try {
                choose(value);
            } catch (const std::exception& e) {
                this->ctx.ui.fatal(QString::fromLocal8Bit(e.what()));
            }
        });
    }
}

void bienvenu015::load() {
    skip([&] { pose_cadre(*this); });
    skip([&] { place_ecran(*this); });
    loadPictures();
    skip([&] { cree_bouton(*this, QStringLiteral("000:108:Fin")); });
    skip([&] { cree_bouton(*this, QStringLiteral("001:099:Marges")); });
    skip([&] { select_shape(); });
}

// The suite's pictures when the data directory has them, else our own.
void bienvenu015::loadPictures() {
    for (const InvoiceFormat& f : invoiceFormats) {
        auto* image = findChild<QLabel*>(QString::fromLatin1(f.image));
        QPixmap picture;
        if (picture.load(QDir::current().filePath(QString::fromLatin1(f.file))))
            picture = picture.scaled(bienvenu015_layout::pictureSize, Qt::KeepAspectRatio,
                                     Qt::SmoothTransformation);
        else
            picture = drawnInvoiceFormat(f.value, bienvenu015_layout::pictureSize);
        image->setPixmap(picture);
    }
}

void bienvenu015::bt_prog_Click(int index) {
    if (index == 0) valide_format();
    if (index == 1) regle_decal();
}

// A click on a picture only selects: nothing is written before "Fin".
void bienvenu015::choose(qint16 format) {
    ctx.format_facture = format;
    select_shape();
}

void bienvenu015::select_shape() {
    for (int i = 0; i < invoiceFormatCount; ++i)
        findChild<Shape*>(arrayName(QStringLiteral("Shape2"), i))
            ->setBorderColor(colourFromNumber(unselected));
    auto* chosen = findChild<Shape*>(arrayName(QStringLiteral("Shape2"), ctx.format_facture));
    if (!chosen) throw Failure(QStringLiteral("Index de tableau de contrôles incorrect"));
    chosen->setBorderColor(colourFromNumber(selected));
}

// The margin is written at once, whatever format is selected and whether or
// not the user leaves with "Fin". A refused value leaves the record as it was.
void bienvenu015::regle_decal() {
    const double stored = numericValue(ctx.get(rec::invoiceOffset));
    const QString prompt = QStringLiteral(
                               "#A#Entrez la valeur en mm pour cadrer votre facturette entre les "
                               "graphiques et les textes"
                               "- en négatif vers la gauche"
                               "- en positif vers la droite.|") +
                           QString::fromLatin1(wholeText(stored / twipsPerMillimetre));
    ctx.form97(prompt, 1129);
    const QString entered = ctx.msg_dialogue;
    if (entered.trimmed().isEmpty()) return;
    const double millimetres = numericValue(entered);
    if (millimetres >= lowestMargin && millimetres <= highestMargin) {
        ctx.put(rec::invoiceOffset, wholeText(millimetres * twipsPerMillimetre));
    } else {
        ctx.form97(QStringLiteral("Valeur incorrecte !"), 0);
    }
}

void bienvenu015::valide_format() {
    const qint16 format = ctx.format_facture;
    const InvoiceFormat* f =
        format >= 0 && format < invoiceFormatCount ? &invoiceFormats[format] : nullptr;
    // A background picture of the shop's own, which the graphic formats print
    // over; a till without one just has none.
    if (f && f->graphic)
        skip([&] {
            QPixmap background;
            if (!background.load(QDir::current().filePath(QStringLiteral("fonfact.gif"))))
                throw Failure(QStringLiteral("Fichier introuvable : fonfact.gif"));
            ctx.icc().fondfact.set(0, background);
        });
    // A full page has nothing to align: its margin goes.
    if (f && f->fullPage) skip([&] { ctx.put(rec::invoiceOffset, "0"); });
    skip([&] { ctx.put(rec::invoiceFormat, QByteArray::number(format)); });
    close();
}
