#include "scale/saisipoids.h"

#include <QDir>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <cmath>

#include "scale/saisipoids_layout.h"
#include "shell/button_bar.h"
#include "shell/colours.h"
#include "shell/context.h"
#include "shell/placing.h"
#include "store/failure.h"
#include "store/numeric.h"

namespace {

constexpr QSize formSize{820, 560};

// Keys of the keypad that the keyboard also reaches.
constexpr int clearAllKey = 10;
constexpr int pointKey = 11;
constexpr int backKey = 12;
constexpr int signKey = 13;

// A number as plain text: no thousands separator, a point for decimals, up to
// 15 significant digits.
QString plainNumber(double value) {
    if (!std::isfinite(value)) throw Failure(QStringLiteral("Dépassement de capacité"));
    return value == 0 ? QStringLiteral("0") : QString::number(value, 'g', 15);
}

// Blanks off both ends, and nothing else.
QString trimBlanks(const QString& text) {
    qsizetype first = 0, last = text.size();
    while (first < last && text[first] == QLatin1Char(' ')) ++first;
    while (last > first && text[last - 1] == QLatin1Char(' ')) --last;
    return text.mid(first, last - first);
}

// Ten characters, blank-padded on the right or cut.
QString field(const QString& text) {
    return text.leftJustified(10, QLatin1Char(' '), true);
}

// The line a sale needs: the three values in fields of ten, then the
// quantity, the price and their units as a person reads them.
QString weightResult(const QString& quantity, const QString& price, const QString& total,
                     const QString& unit, const QString& currency, const QString& priceUnit) {
    return field(quantity) + field(price) + field(total) + QLatin1Char('(') + trimBlanks(quantity) +
           QLatin1Char(' ') + trimBlanks(unit) + QStringLiteral(" x ") + trimBlanks(price) +
           QLatin1Char(' ') + trimBlanks(currency) + QLatin1Char('/') + trimBlanks(priceUnit) +
           QLatin1Char(')');
}

void setTextColour(QWidget& widget, const QColor& colour) {
    QPalette palette = widget.palette();
    palette.setColor(QPalette::WindowText, colour);
    widget.setPalette(palette);
}

}  // namespace

saisipoids::saisipoids(Context& context) : Screen(context, QStringLiteral("saisipoids")) {
    setWindowTitle(QStringLiteral("Kalvo_Poids"));
    setWindowFlags(Qt::Dialog);
    setFocusPolicy(Qt::StrongFocus);
    resize(formSize);
    saisipoids_layout::build(*this);

    const auto label = [this](const char* name) {
        return findChild<QLabel*>(QString::fromLatin1(name));
    };
    Label2_ = label("Label2");
    Label4_ = label("Label4");
    Label6_ = label("Label6");
    Label7_ = label("Label7");
    Label8_ = label("Label8");
    Label9_ = label("Label9");
    Label14_ = label("Label14");
    Label15_ = label("Label15");
    Label53_ = label("Label53");
    Text1_ = findChild<QLineEdit*>(QStringLiteral("Text1"));
    List1_ = findChild<QListWidget*>(QStringLiteral("List1"));
    Picture1_ = findChild<ClickLabel*>(QStringLiteral("Picture1"));

    // A click on a key's face counts as a click on its caption.
    for (int i = 0; i <= 15; ++i) {
        for (const char* part : {"Label17", "ifondc"}) {
            auto* key = findChild<ClickLabel*>(arrayName(QString::fromLatin1(part), i));
            connect(key, &ClickLabel::clicked, this, [this, i] { Label17_Click(i); });
        }
    }
    connect(Text1_, &QLineEdit::textChanged, this, [this] { Text1_Change(); });
    connect(findChild<ClickLabel*>(QStringLiteral("Label53")), &ClickLabel::clicked, this,
            [this] { List1_->show(); });
    connect(Picture1_, &ClickLabel::clicked, this, [this] { Picture1_->hide(); });
}

void saisipoids::load() {
    skip([&] { pose_cadre(*this); });
    skip([&] { centre_ecran(*this); });
    skip([&] { charge_bouton(*this); });
    skip([&] { cree_bouton(*this, QStringLiteral("001:124:Valider")); });
    skip([&] { cree_bouton(*this, QStringLiteral("002:129:Annuler")); });
    Label7_->clear();
    Label9_->clear();
    const QString unit = trimBlanks(ctx.fiche_article.mid(200, 9));
    Label8_->setText(unit);
    Label14_->setText(unit);
    // "/" between the price and its unit, only when there is a unit.
    findChild<QLabel*>(QStringLiteral("barre_unite"))->setVisible(!unit.isEmpty());
    // The hint picture of the scale: loaded, and hidden as designed.
    skip([&] {
        QPixmap picture;
        if (!picture.load(QDir::current().filePath(QStringLiteral("kl_img_055.gif"))))
            throw Failure(QStringLiteral("Fichier introuvable : kl_img_055.gif"));
        Picture1_->setPixmap(picture);
    });
    const QColor headings = colourFromNumber(ctx.couleur_theme[1]);
    for (const char* name : {"Label5", "Label10", "Label11", "Label12", "Label13"})
        setTextColour(*findChild<QLabel*>(QString::fromLatin1(name)), headings);
    skip([&] { Label4_->setText(plainNumber(ctx.prix_unitaire)); });
}

void saisipoids::showEvent(QShowEvent* event) {
    Screen::showEvent(event);
    setFocus();
}

void saisipoids::bt_prog_Click(int index) {
    if (index == 1) valide_poids();
    if (index == 2) annule_poids();
}

void saisipoids::Label17_Click(int index) {
    const QString quantity = Label2_->text();
    if (index >= 0 && index <= 9) {
        setQuantity(quantity + QString::number(index));
    } else if (index == clearAllKey) {
        setQuantity(QString());
    } else if (index == pointKey) {
        setQuantity(quantity + QLatin1Char('.'));
    } else if (index == backKey) {
        if (!quantity.isEmpty()) setQuantity(quantity.chopped(1));
    } else if (index == signKey) {
        Label15_->setText(Label15_->text() == QLatin1String("-") ? QString() : QStringLiteral("-"));
    }
}

void saisipoids::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            valide_poids();
            return;
        case Qt::Key_Escape:
            annule_poids();
            return;
        case Qt::Key_Backspace:
            Label17_Click(backKey);
            return;
        default:
            break;
    }
    const QString typed = event->text();
    const QChar c = typed.size() == 1 ? typed[0] : QChar();
    if (c >= QLatin1Char('0') && c <= QLatin1Char('9'))
        Label17_Click(c.digitValue());
    else if (c == QLatin1Char('.'))
        Label17_Click(pointKey);
    else if (c == QLatin1Char('C') || c == QLatin1Char('c'))
        Label17_Click(backKey);
    else if (c == QLatin1Char('-'))
        Label17_Click(signKey);
}

void saisipoids::setQuantity(const QString& text) {
    Label2_->setText(text);
    Label2_Change();
}

void saisipoids::Label2_Change() {
    skip([&] {
        Label6_->setText(
            plainNumber(numericValue(Label2_->text()) * numericValue(Label4_->text())));
    });
}

// Where a scale's reading would come in.
void saisipoids::Text1_Change() {
    if (!trimBlanks(Text1_->text()).isEmpty()) setQuantity(Text1_->text());
}

// The sign is applied only now, so the minus key may come before or after the
// digits.
void saisipoids::valide_poids() {
    if (numericValue(Label2_->text()) == 0) {
        ctx.form97(QStringLiteral("Vous n'avez pas saisi de quantité !"), 0);
        return;
    }
    if (Label15_->text() == QLatin1String("-")) setQuantity(QLatin1Char('-') + Label2_->text());
    ctx.chaine_travail = weightResult(Label2_->text(), Label4_->text(), Label6_->text(),
                                      Label8_->text(), Label7_->text(), Label14_->text());
    close();
}

void saisipoids::annule_poids() {
    ctx.chaine_travail.clear();
    close();
}

void saisipoids::affiche_balance() {
    Label53_->show();
}

void saisipoids::cache_balance() {
    Label53_->hide();
}
