#include "labels/etiqqq.h"

#include <QCheckBox>
#include <QComboBox>
#include <QListWidget>
#include <QPixmap>
#include <QPushButton>

#include "shell/choix_printer.h"
#include "shell/context.h"
#include "shell/form_parts.h"
#include "shell/image_banks.h"
#include "shell/placing.h"
#include "shell/printer_object.h"
#include "shell/system_printers.h"
#include "shell/tick_box.h"
#include "store/failure.h"
#include "store/numeric.h"
#include "store/param_table.h"
#include "store/record_files.h"
#include "store/record_store.h"
#include "store/records.h"

namespace {
const QColor background(0xf4, 0xf7, 0xfb);
constexpr int formWidth = 760;
constexpr int formHeight = 560;
constexpr int margin = 48;
const QString labelKey = QStringLiteral("IMP_ETIQ_DEF");
}  // namespace

etiqqq::etiqqq(Context& ctx) : Screen(ctx, QStringLiteral("etiqqq")) {
    buildControls();
}

void etiqqq::buildControls() {
    setWindowTitle(QStringLiteral("Paramétrage d'une étiquetteuse"));
    resize(formWidth, formHeight);
    setBackground(*this, screenBackground);

    addText(*this, QStringLiteral("Label1"), QStringLiteral("Paramétrage d'une étiquetteuse"),
            QRect(margin, 44, 520, 34), {.pointSize = 18, .bold = true});
    auto* image = make<QLabel>(QStringLiteral("Image1"));
    image->setGeometry(formWidth - margin - 130, 40, 130, 110);
    image->setAlignment(Qt::AlignCenter);
    addText(*this, QStringLiteral("Label2"),
            QStringLiteral("Choisissez dans la liste ci-dessous l'imprimante sur laquelle seront "
                           "envoyées les étiquettes. Si vous n'avez pas d'étiquetteuse, les "
                           "étiquettes seront envoyées sur l'imprimante A4 par défaut."),
            QRect(margin, 88, 520, 66));

    addText(*this, QStringLiteral("Label3"), QStringLiteral(" Imprimantes Disponibles"),
            QRect(margin, 166, 400, 22), {.pointSize = 11, .bold = true});
    CbPrinters = make<QComboBox>(QStringLiteral("CbPrinters"));
    CbPrinters->setGeometry(margin, 192, formWidth - 2 * margin, 34);
    QFont listFont = CbPrinters->font();
    listFont.setPointSize(12);
    CbPrinters->setFont(listFont);

    addCard(*this, QRect(margin, 244, formWidth - 2 * margin, 96), QColor(0xff, 0xf8, 0xe1));
    addText(*this, QStringLiteral("Label5"), QStringLiteral("Trés Important !"),
            QRect(margin + 16, 254, 300, 24),
            {.pointSize = 12, .bold = true, .colour = QColor(0xc6, 0x28, 0x28)});
    // The "&" marks the access key of the list, as on the suite's labels.
    QLabel* warning = addText(
        *this, QStringLiteral("Label4"),
        QStringLiteral("Il est indispensable de bien définir dans le panneau de configuration "
                       "de votre étiquetteuse, le format des &étiquettes que vous utilisez"),
        QRect(margin + 16, 280, formWidth - 2 * margin - 32, 52));
    warning->setBuddy(CbPrinters);

    bt_on = make<ClickLabel>(QStringLiteral("bt_on"));
    bt_on->setGeometry(margin, 366, 44, 44);
    bt_on->setScaledContents(true);
    bt_on->setCursor(Qt::PointingHandCursor);
    connect(bt_on, &ClickLabel::clicked, this, [this] { guard([&] { bt_on_Click(); }); });
    addText(*this, QStringLiteral("Label6"),
            QStringLiteral("J'utilise une étiquetteuse, toutes les impressions d'étiquettes "
                           "seront imprimées à l'imprimante sélectionnée ci-dessus"),
            QRect(margin + 60, 364, formWidth - 2 * margin - 60, 48), {.pointSize = 11});
    Check1 = make<QCheckBox>(QStringLiteral("Check1"));
    Check1->setTristate(true);
    Check1->hide();
    connect(Check1, &QCheckBox::stateChanged, this, [this] { guard([&] { affiche_bouton(); }); });

    Image2 = make<ClickLabel>(QStringLiteral("Image2"));
    Image2->setGeometry(formWidth - margin - 72, formHeight - margin - 72, 72, 72);
    Image2->setCursor(Qt::PointingHandCursor);
    connect(Image2, &ClickLabel::clicked, this, [this] { guard([&] { Image2_Click(); }); });

    List1 = make<QListWidget>(QStringLiteral("List1"));
    List1->hide();
    Command1 = make<QPushButton>(QStringLiteral("Command1"));
    Command1->setText(QStringLiteral("par defaut "));
    Command1->hide();
    connect(Command1, &QPushButton::clicked, this, [this] { guard([&] { Command1_Click(); }); });
    Command2 = make<QPushButton>(QStringLiteral("Command2"));
    Command2->setText(QStringLiteral("Command2"));
    Command2->hide();
    connect(Command2, &QPushButton::clicked, this, [this] { guard([&] { Command2_Click(); }); });
}

// Every statement of the load is skipped when it fails.
void etiqqq::load() {
    skip([&] { pose_cadre(*this); });
    skip([&] { centre_ecran(*this); });
    skip([&] {
        QPixmap picture(QStringLiteral("kl_img_117.gif"));
        auto* image = findChild<QLabel*>(QStringLiteral("Image1"));
        image->setPixmap(picture.isNull() ? ctx.icc().Image3.at(1) : picture);
    });
    skip([&] { Image2->setPixmap(ctx.icc().Image3.at(0)); });
    skip([&] { ctx.chaine_travail = lit_param(ctx.store, labelKey); });
    listPrinters();
    skip([&] { ouvre_fich142(ctx.store, ctx.today()); });
    skip([&] { setCheck1(numericValue(ctx.get(rec::labelPrinterUsed))); });
    skip([&] { affiche_bouton(); });
}

// The screen lists the system's printers itself, into its own list and the
// printer choice's table, and finds the stored and the default one by their
// exact names.
void etiqqq::listPrinters() {
    QString defaultName;
    skip([&] { defaultName = imprimante_defaut(ctx).trimmed(); });
    CbPrinters->clear();
    int count = 0;
    ind_etiq = -1;
    ind_defaut = -1;
    QStringList names;
    skip([&] { names = ctx.platform.printers().names(); });
    for (const QString& name : names) {
        CbPrinters->addItem(name);
        if (name == ctx.chaine_travail) ind_etiq = count;
        if (name == defaultName) ind_defaut = count;
        if (count < int(ctx.tab_imprimantes.size())) ctx.tab_imprimantes[size_t(count)] = name;
        ++count;
    }
    ctx.nb_imprimantes = qint16(count);
    List1->clear();
    List1->addItems({QStringLiteral("defaut : ") + defaultName,
                     QStringLiteral("etique : ") + ctx.chaine_travail});
    CbPrinters->setCurrentIndex(ind_etiq);
}

int etiqqq::check1() const {
    return tickValue(*Check1);
}

void etiqqq::setCheck1(double value) {
    setTickValue(*Check1, value);
}

void etiqqq::affiche_bouton() {
    bt_on->setPixmap(ctx.icc().oui.at(check1()));
}

void etiqqq::bt_on_Click() {
    setCheck1(check1() == 0 ? 1 : 0);
}

void etiqqq::Image2_Click() {
    const QString chosen = CbPrinters->currentText().trimmed();
    if (chosen.isEmpty() && check1() != 0) {
        ctx.form97(QStringLiteral("Vous n'avez pas sélectionné d'étiquetteuse dans la liste !"), 0);
        setCheck1(0);
        return;
    }
    if (!chosen.isEmpty()) ecrit_param(ctx.store, labelKey, chosen);
    if (check1() == 0) ecrit_param(ctx.store, labelKey, QStringLiteral(" "));
    ctx.put(rec::labelPrinterUsed, QByteArray::number(check1()));
    ctx.store.close(files::main);
    close();
}

void etiqqq::annule_etiq() {
    if (ctx.form97(
            QString::fromUtf8("ON|Confirmez que vous n'utilisez pas d'étiquetteuse spécifique ?"),
            4) != 6)
        return;
    ctx.put(rec::labelPrinterUsed, " ");
    close();
}

// The two hidden test buttons: a line on the current printer; a line on the
// label printer, then one on the default printer.
void etiqqq::Command1_Click() {
    ctx.Printer().Print(QStringLiteral(" noxnoxnox"));
    ctx.Printer().EndDoc();
}

void etiqqq::Command2_Click() {
    choix_imprimante(ctx, ind_etiq);
    ctx.Printer().Print(QStringLiteral("dqsfjqlfjklkl"));
    ctx.Printer().EndDoc();
    choix_imprimante(ctx, ind_defaut);
    ctx.Printer().Print(QStringLiteral("ok"));
    ctx.Printer().EndDoc();
}
