#include "serial/port_form.h"

#include <QComboBox>
#include <QFrame>
#include <QLineEdit>
#include <QTimer>

#include "print/accents.h"
#include "print/mscomm.h"
#include "print/port_parameter_string.h"
#include "serial/port_test_text.h"
#include "shell/button_bar.h"
#include "shell/colours.h"
#include "shell/context.h"
#include "shell/image_banks.h"
#include "shell/placing.h"
#include "shell/settings_lists.h"
#include "shell/shape.h"
#include "store/failure.h"
#include "store/numeric.h"

namespace {

// Colours of the port boxes, as blue-green-red numbers.
constexpr int selectedBorder = 0x000080;  // dark red
constexpr int selectedBack = 0xC0E0FF;    // light orange
constexpr int otherBorder = 0xC0C0C0;
constexpr int otherBack = 0xFFFFFF;

// Geometry, in pixels of the 1024 by 738 design.
constexpr int left = 48;
constexpr int right = 976;
constexpr int column = 520;  // the right-hand column
constexpr int boxTop = 150;
constexpr int boxWidth = 66;
constexpr int boxHeight = 50;
constexpr int boxStep = 78;
constexpr int rowTop = 228;
constexpr int rowStep = 36;

QLabel* text(QWidget* parent, const QString& name, const QString& caption, const QRect& where,
             int pixelSize = 14, bool bold = false) {
    auto* label = new QLabel(caption, parent);
    label->setObjectName(name);
    label->setGeometry(where);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    QFont font = label->font();
    font.setPixelSize(pixelSize);
    font.setBold(bold);
    label->setFont(font);
    return label;
}

// A caption that heads a field, as the suite draws them: a tinted band.
QLabel* heading(QWidget* parent, const QString& name, const QString& caption, const QRect& where) {
    QLabel* label = text(parent, name, caption, where, 14, true);
    label->setStyleSheet(QStringLiteral("background: #d6e2ef; border: 1px solid #b8c4d0;"));
    return label;
}

// A rounded panel holding one action or one group of texts.
QFrame* panel(QWidget* parent, const QString& name, const QRect& where, const char* fill) {
    auto* frame = new QFrame(parent);
    frame->setObjectName(name);
    frame->setGeometry(where);
    frame->setStyleSheet(QStringLiteral("QFrame#%1 { background: %2; border: 1px solid #b8c4d0;"
                                        " border-radius: 10px; }")
                             .arg(name, QLatin1String(fill)));
    return frame;
}

QLabel* picture(QWidget* parent, const QString& name, const QPixmap& pixmap, const QRect& where) {
    auto* image = new QLabel(parent);
    image->setObjectName(name);
    image->setGeometry(where);
    image->setAlignment(Qt::AlignCenter);
    image->setPixmap(pixmap);
    return image;
}

}  // namespace

PortForm::PortForm(Context& ctx, PortFormVariant variant)
    : Screen(ctx, variant.name), variant_(std::move(variant)), port_(ctx.platform.newPort()) {
    setWindowTitle(QString::fromUtf8("Paramétrage de base d'un port série (Rs 232)"));
    QFont f = font();
    f.setFamilies({QStringLiteral("Arial"), QStringLiteral("Liberation Sans")});
    f.setPixelSize(14);
    setFont(f);
    resize(designWidth, designHeight);
    buildControls();
}

PortForm::~PortForm() = default;

void PortForm::buildControls() {
    text(this, QStringLiteral("Label7"),
         QString::fromUtf8("Paramétrage de base d'un port série (Rs 232)"),
         QRect(left, 36, right - left, 34), 24, true);
    text(this, QStringLiteral("Label9"), variant_.instructions, QRect(left, 74, right - left, 64),
         15);

    // The templates of the port boxes, hidden; the boxes are made on load.
    Shape1[0] = make<Shape>(arrayName(QStringLiteral("Shape1"), 0));
    Shape1[0]->setGeometry(left, boxTop, boxWidth, boxHeight);
    Shape1[0]->setBorderWidth(4);
    Shape1[0]->hide();
    Label8[0] = make<ClickLabel>(arrayName(QStringLiteral("Label8"), 0));
    Label8[0]->setGeometry(left + 4, boxTop + 4, boxWidth - 8, boxHeight - 8);
    Label8[0]->setAlignment(Qt::AlignCenter);
    QFont number = Label8[0]->font();
    number.setPixelSize(22);
    number.setBold(true);
    Label8[0]->setFont(number);
    Label8[0]->hide();

    // The settings, one row each.
    const QString captions[] = {QString::fromUtf8(" Vitesse du port série"),
                                QString::fromUtf8(" Parité"), QStringLiteral(" Nb de bits"),
                                QStringLiteral(" Bit de Stop"), variant_.accentCaption};
    const QString names[] = {QStringLiteral("Combo1"), QStringLiteral("Combo2"),
                             QStringLiteral("Combo3"), QStringLiteral("combo4"),
                             QStringLiteral("Combo5")};
    QComboBox* lists[5];
    for (int i = 0; i < 5; ++i) {
        const int y = rowTop + i * rowStep;
        heading(this, i < 4 ? QStringLiteral("Label%1").arg(i + 1) : QStringLiteral("Label19"),
                captions[i], QRect(left, y, 212, 28));
        lists[i] = make<QComboBox>(names[i]);
        lists[i]->setGeometry(left + 220, y, 220, 28);
        if (i < 4) makeFreeText(*lists[i]);  // the accent list takes its entries only
    }
    Combo1 = lists[0];
    Combo2 = lists[1];
    Combo3 = lists[2];
    combo4 = lists[3];
    Combo5 = lists[4];
    text(this, QStringLiteral("Label6"),
         QString::fromUtf8("Cliquez sur le bouton 'Paramètres'. Dans la majorité des cas l'option "
                           "par défaut permet de faire fonctionner votre imprimante."),
         QRect(left, rowTop + 5 * rowStep + 8, 440, 54));
    text(this, QStringLiteral("Label5"),
         QString::fromUtf8("Si votre imprimante réagit mais envoi des caracteres \"'bizarres', "
                           "essayez d'adapter la vitesse du port série."),
         QRect(left, rowTop + 5 * rowStep + 66, 440, 54));

    Icc& icc = ctx.icc();
    const int width = right - column;
    if (variant_.scan) {
        QFrame* scan =
            panel(this, QStringLiteral("Frame4"), QRect(column, rowTop, width, 64), "#f4f7fb");
        picture(scan, QStringLiteral("Image2"), icc.p11Picture(0), QRect(10, 4, 56, 56));
        text(scan, QStringLiteral("Label10"), QString::fromUtf8("Lancer le Scan des ports séries "),
             QRect(78, 4, width - 90, 56), 17, true);
        Label11 = make<ClickLabel>(QStringLiteral("Label11"), scan);
        Label11->setGeometry(0, 0, width, 64);
    }
    if (variant_.notebook) {
        heading(this, QStringLiteral("Label20"), QStringLiteral(" Nom de l'imprimante"),
                QRect(column, rowTop, 212, 28));
        Text1 = make<QLineEdit>(QStringLiteral("Text1"));
        Text1->setGeometry(column + 220, rowTop, width - 220, 28);
        heading(this, QStringLiteral("Label21"), QStringLiteral(" Codes initialisation"),
                QRect(column, rowTop + rowStep, 212, 28));
        for (int i = 0; i < 12; ++i) {
            Text8[i] = make<QLineEdit>(arrayName(QStringLiteral("Text8"), i));
            Text8[i]->setGeometry(column + i * 38, rowTop + 2 * rowStep, 34, 28);
            Text8[i]->setAlignment(Qt::AlignCenter);
        }
    }

    // The test print and, in its place during a scan, the "OK".
    const int actionTop = rowTop + 3 * rowStep + (variant_.notebook ? 16 : -16);
    Frame2 = panel(this, QStringLiteral("Frame2"), QRect(column, actionTop, width, 72), "#f4f7fb");
    picture(Frame2, QStringLiteral("Image3"), icc.p11Picture(99), QRect(10, 8, 56, 56));
    text(Frame2, QStringLiteral("Label15"),
         QString::fromUtf8("Faire un test d'impression sur le port série sélectionné"),
         QRect(78, 4, width - 90, 64), 17, true);
    Label14 = make<ClickLabel>(QStringLiteral("Label14"), Frame2);
    Label14->setGeometry(0, 0, width, 72);
    if (variant_.scan) {
        Frame1 =
            panel(this, QStringLiteral("Frame1"), QRect(column, actionTop, width, 72), "#e3f4e1");
        auto* ok =
            picture(Frame1, QStringLiteral("Image4"), icc.p11Picture(124), QRect(8, 6, 60, 60));
        ok->setStyleSheet(
            QStringLiteral("background: white; border: 2px solid #2e7d32;"
                           " border-radius: 8px;"));
        text(Frame1, QStringLiteral("Label12"),
             QString::fromUtf8("Cliquez sur le bouton 'OK' dés que votre imprimante ticket "
                               "iimprimera des lignes"),
             QRect(78, 4, width - 90, 64), 15, true);
        Label13 = make<ClickLabel>(QStringLiteral("Label13"), Frame1);
        Label13->setGeometry(ok->geometry());
        Frame1->hide();
    }

    // What the user waits for.
    Frame3 =
        panel(this, QStringLiteral("Frame3"), QRect(column, actionTop + 84, width, 150), "#fff8e1");
    const int textLeft = variant_.scan ? 52 : 14;
    if (variant_.scan) {
        Shape6 = new Shape(Frame3);
        Shape6->setObjectName(QStringLiteral("Shape6"));
        Shape6->setGeometry(14, 16, 26, 26);
        Shape6->setRound(true);
        Shape6->setBorderColor(QColor(0xc7, 0x78, 0x00));
        Shape6->setFillColor(QColor(0xff, 0xb3, 0x00));
    }
    text(Frame3, QStringLiteral("Label17"),
         QStringLiteral("Veuillez attendre que votre imprimante réagisse et imprime des lignes."),
         QRect(textLeft, 8, width - textLeft - 12, 42), 15, true);
    text(Frame3, QStringLiteral("Label18"),
         QString::fromUtf8("Si vous n'avez aucune réaction sur les 12 ports c'est que votre "
                           "imprimante est mal connectée, contactez votre revendeur de matériel. "
                           "Cliquez sur (Annuler) pour sortir."),
         QRect(textLeft, 52, width - textLeft - 12, 90));
    Frame3->hide();

    if (variant_.scan) {
        Timer1 = new QTimer(this);
        Timer1->setObjectName(QStringLiteral("Timer1"));
        Timer2 = new QTimer(this);
        Timer2->setObjectName(QStringLiteral("Timer2"));
    }

    const int slotCount = int(variant_.bar.size());
    prepareBar(slotCount, QPoint(right - 80 - 100 * (slotCount - 1), 614), 100);
}

void PortForm::fitAndDress() {
    skip([&] { place_ecran(*this); });
    skip([&] { pose_cadre(*this); });
    for (const QString& definition : variant_.bar) skip([&] { cree_bouton(*this, definition); });
}

void PortForm::fillLists() {
    fillSettingsLists(settingsLists());
    Combo5->clear();
    for (const char* entry : accentModeEntries) Combo5->addItem(QString::fromLatin1(entry));
    Combo5->setCurrentIndex(0);
}

void PortForm::makePortBoxes() {
    for (int i = 1; i <= 12; ++i) {
        if (Label8.count(i)) continue;
        const QPoint shift((i - 1) * boxStep, 0);
        Shape* box = make<Shape>(arrayName(QStringLiteral("Shape1"), i));
        box->setGeometry(Shape1[0]->geometry().translated(shift));
        box->setBorderWidth(4);
        box->show();
        ClickLabel* label = make<ClickLabel>(arrayName(QStringLiteral("Label8"), i));
        label->setGeometry(Label8[0]->geometry().translated(shift));
        label->setAlignment(Label8[0]->alignment());
        label->setFont(Label8[0]->font());
        label->setText(QString::number(i));
        label->show();
        Shape1[i] = box;
        Label8[i] = label;
        onClick(label, [this, i] { Label8_Click(i); });
    }
}

void PortForm::showSettings() {
    ::showSettings(settingsLists(), ctx.chaine_travail, &ctx.chaine_travail);
}

void PortForm::paintBoxes(int selected) {
    for (int i = 1; i <= 12; ++i) {
        Shape1.at(i)->setBorderColor(
            colourFromNumber(i == selected ? selectedBorder : otherBorder));
        setBackColor(*Label8.at(i), i == selected ? selectedBack : otherBack);
    }
}

bool PortForm::printTestText(int port, int printedPort) {
    ctx.mode_accent = numericInt16(Combo5->currentText());
    try {
        port_->setCommPort(port);
        port_->setPortOpen(true);
        ctx.reglages_serie = listedSettings(settingsLists());
        port_->setSettings(ctx.reglages_serie);
        sendPortTestText(*port_, portTestText(printedPort), ctx.mode_accent);
        port_->setPortOpen(false);
        return true;
    } catch (const Failure&) {
        return false;
    }
}

bool PortForm::askGoodPrint(int port) {
    if (ctx.form97(QString::fromUtf8("ON|Le texte 'Le test d'impression à réussi..' apparait-il "
                                     "sur votre ticket avec les accents ?"),
                   4) == 6)
        return true;
    ctx.form97(QString::fromUtf8("Le N° de port N° %1 est correct, essayez de changer les "
                                 "parametres si le texte est illisible (Vitesse en priorité), ou "
                                 "de regler les accents puis cliquez sur test d'impression !")
                   .arg(port),
               0);
    return false;
}

void PortForm::tellWrongPort(int port) {
    ctx.form97(QString::fromUtf8("Le port série N° %1 n'est pas le bon !").arg(port), 0);
}

void PortForm::onClick(ClickLabel* area, std::function<void()> action) {
    connect(area, &ClickLabel::clicked, this,
            [this, action = std::move(action)] { guard(action); });
}

void PortForm::setInterval(QTimer* timer, int ms) {
    if (ms == 0)
        timer->stop();
    else
        timer->start(ms);
}
