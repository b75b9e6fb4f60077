#include "guided/form2.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPainter>

#include "shell/button_bar.h"
#include "shell/choix_printer.h"
#include "shell/context.h"
#include "shell/form_parts.h"
#include "shell/image_banks.h"
#include "shell/placing.h"
#include "shell/printer_object.h"
#include "shell/tick_box.h"
#include "store/codec.h"
#include "store/failure.h"
#include "store/fixed_string.h"
#include "store/numeric.h"
#include "store/record_files.h"
#include "store/record_store.h"
#include "store/records.h"

namespace {
constexpr int formWidth = 960;
constexpr int formHeight = 650;
constexpr int left = 24;
constexpr int right = 490;

const QString ruler = QString(32, QLatin1Char('-'));

// What record 90 holds: its first character is printed on each feed line
// (a dot makes the driver advance, a blank may be swallowed by it).
const char* const forcedFeed = ".: sauve ligne";
const char* const plainFeed = " : ' saut ligne";

QComboBox* numberCombo(Screen& form, const char* name, int first, int last, const QRect& where) {
    auto* combo = form.make<QComboBox>(QString::fromLatin1(name));
    combo->setEditable(true);
    for (int n = first; n <= last; ++n) combo->addItem(QString::number(n));
    combo->setGeometry(where);
    QFont font = combo->font();
    font.setPointSize(11);
    combo->setFont(font);
    return combo;
}

// A roll of paper seen from the front, its width drawn to scale.
QPixmap rollPicture(int millimetres) {
    QPixmap picture(180, 96);
    picture.fill(Qt::transparent);
    QPainter p(&picture);
    p.setRenderHint(QPainter::Antialiasing);
    const double width = millimetres * 1.9;
    const QRectF paper(90 - width / 2, 8, width, 62);
    p.setPen(QPen(QColor(0x90, 0xa4, 0xae), 1.5));
    p.setBrush(Qt::white);
    p.drawRect(paper);
    p.setBrush(QColor(0xcf, 0xd8, 0xdc));
    p.drawEllipse(QRectF(paper.left() - 7, 8, 14, 62));
    p.drawEllipse(QRectF(paper.right() - 7, 8, 14, 62));
    p.setPen(QPen(QColor(0x37, 0x47, 0x4f), 1));
    QFont font(QStringLiteral("Arial"));
    font.setPixelSize(16);
    font.setBold(true);
    p.setFont(font);
    p.drawText(QRectF(0, 72, 180, 22), Qt::AlignCenter, QStringLiteral("%1 mm").arg(millimetres));
    return picture;
}
}  // namespace

Form2::Form2(Context& ctx) : Screen(ctx, QStringLiteral("Form2")) {
    buildControls();
}

void Form2::buildControls() {
    setWindowTitle(QStringLiteral("Parametrage imprimante ticket "));
    resize(formWidth, formHeight);
    setBackground(*this, screenBackground);

    addText(*this, QStringLiteral("Label1"),
            QStringLiteral("Vous utilisez une imprimante ticket installée en usb ou en parralle. "
                           "Pour fonctionner correctement le driver de cette imprimante doit avoir "
                           "été installé sous windows et l'imprimante doit être déclarée par "
                           "défaut dans windows."),
            QRect(left, 20, 912, 48), {.pointSize = 11, .bold = true});
    addText(
        *this, QStringLiteral("Label2"),
        QStringLiteral("Les seuls parametres modifiables sont la taille de caractères, le "
                       "décalage des caractères vers la droite pour centrer l'écriture de votre "
                       "ticket et le nombre de ligne pour sortir le ticket de l'imprimante."),
        QRect(left, 74, 912, 44), {.pointSize = 10});

    addCard(*this, QRect(left - 8, 126, 456, 404));
    buildRollZones();
    addText(*this, QStringLiteral("Label4"), QStringLiteral("Taille des caractères"),
            QRect(left + 8, 284, 200, 20), {.pointSize = 10, .bold = true});
    Combo1 = numberCombo(*this, "Combo1", 4, 14, QRect(left + 8, 306, 96, 30));
    Check1 = make<QCheckBox>(QStringLiteral("Check1"));
    Check1->setText(QStringLiteral("Ecriture en Gras"));
    Check1->setGeometry(left + 124, 307, 200, 28);
    addText(*this, QStringLiteral("Label5"),
            QStringLiteral("Nombre de caracteres a ajouter avant chaque ligne pour cadrer "
                           "l'écriture dans le ticket. (Si zero l'ecriture sera collé sur la "
                           "gauche du ticket)"),
            QRect(left + 8, 348, 420, 40), {.pointSize = 10});
    Combo2 = numberCombo(*this, "Combo2", 0, 15, QRect(left + 8, 392, 96, 30));
    addText(*this, QStringLiteral("Label6"),
            QStringLiteral("Nombre de lignes à envoyer à la fin du ticket pour pouvoir le "
                           "déchirer ou le découper "),
            QRect(left + 8, 434, 420, 40), {.pointSize = 10});
    Combo3 = numberCombo(*this, "Combo3", 0, 15, QRect(left + 8, 478, 96, 30));
    Check2 = make<QCheckBox>(QStringLiteral("Check2"));
    Check2->setText(QStringLiteral("Sauts de lignes forcés"));
    Check2->setGeometry(left + 124, 479, 240, 28);

    // The sample on a strip of paper, between its two rulers.
    addCard(*this, QRect(right, 126, 446, 170));
    QFont courier(QStringLiteral("Courier New"));
    courier.setPointSize(13);
    const std::pair<int, QString> lines[] = {
        {0, ruler}, {2, QStringLiteral("Ligne de vente      +   118.40 A   ")}, {1, ruler}};
    int y = 164;
    for (const auto& [index, text] : lines) {
        QLabel* line = addText(*this, arrayName(QStringLiteral("Label3"), index), text,
                               QRect(right + 24, y, 410, 26));
        line->setFont(courier);
        line->setWordWrap(false);
        y += 28;
    }
    addText(*this, QStringLiteral("Label7"),
            QStringLiteral("Faites un test d'impression, vous devez obtenir sur votre ticket la "
                           "ligne intégrale 'Ligne de vente  +  18.40 A', si il vous manque des "
                           "caractères, réduisez la taille de caractères ou les caractères de "
                           "décalage"),
            QRect(right, 310, 446, 60), {.pointSize = 10, .italic = true});
    addText(*this, QStringLiteral("Label8"),
            QStringLiteral("Si vous utilisez une autre imprimante que celle par défaut, choisissez "
                           "la ci-dessous. Vous devrez aller ensuite dans outils,  Sélection et "
                           "activer la redirection d'imprimante."),
            QRect(right, 396, 446, 60), {.pointSize = 10});
    combo4 = make<QComboBox>(QStringLiteral("combo4"));
    combo4->setGeometry(right, 478, 446, 30);
    QFont listFont = combo4->font();
    listFont.setPointSize(11);
    combo4->setFont(listFont);
    // Another printer for the test only; no record changes. A line past the
    // table's 21 entries leaves the printer as it was.
    connect(combo4, &QComboBox::activated, this,
            [this](int index) { skip([&] { choix_imprimante(this->ctx, index); }); });

    prepareBar(2, QPoint(formWidth - left - 180, formHeight - 24 - barSlotSize.height()), 100);
}

void Form2::buildRollZones() {
    addText(*this, QStringLiteral("Label9"), QStringLiteral("Largeur du rouleau"),
            QRect(left + 8, 138, 300, 22), {.pointSize = 11, .bold = true});
    const struct {
        const char* name;
        int millimetres;
        const char *size, *margin;
    } zones[] = {{"Label12", 50, "7", "0"}, {"Label13", 80, "9", "5"}};
    int x = left + 8;
    for (const auto& zone : zones) {
        auto* picture = make<ClickLabel>(QString::fromLatin1(zone.name));
        picture->setPixmap(rollPicture(zone.millimetres));
        picture->setGeometry(x, 166, 200, 104);
        picture->setAlignment(Qt::AlignCenter);
        picture->setCursor(Qt::PointingHandCursor);
        picture->setStyleSheet(
            QStringLiteral("border: 1px solid #b8c4d0; border-radius: 8px; background: #f4f7fb;"));
        connect(picture, &ClickLabel::clicked, this,
                [this, zone] { guard([&] { preset(zone.size, zone.margin, "5"); }); });
        x += 216;
    }
}

void Form2::preset(const char* size, const char* margin, const char* feed) {
    Combo1->setEditText(QString::fromLatin1(size));
    Check1->setChecked(true);
    Combo2->setEditText(QString::fromLatin1(margin));
    Combo3->setEditText(QString::fromLatin1(feed));
}

void Form2::load() {
    liste_imprimantes(ctx);
    skip([&] { ouvre_perifx(ctx.store, ctx.today()); });
    centre_ecran(*this);
    loadRecords();
    cree_bouton(*this, QStringLiteral("000:124:Valider"));
    cree_bouton(*this, QStringLiteral("001:000:Edition"));
    combo4->clear();
    combo4->addItems(ctx.icc().CbPrinters);
    combo4->setCurrentIndex(-1);
    Check2->setChecked(true);
}

// Record 697 reads the size up to position 9, then ":" and the bold flag; a
// size below 6 or above 24 loads as 9 (the list itself offers 4 to 14).
void Form2::loadRecords() {
    const auto sales = [&](int number) { return ctx.store.get(files::sales, number); };
    QByteArray font;
    skip([&] { font = sales(rec::defaultPrinterFont.number); });
    const double stored = numericValue(font);
    Combo1->setEditText(stored < 6 || stored > 24 ? QStringLiteral("9") : formatZero(stored));
    skip([&] { setTickValue(*Check1, numericValue(font.mid(10))); });
    // Any size of number, as the store reads it: no limit applies here.
    skip([&] { Combo2->setEditText(formatZero(numericValue(sales(rec::leftMargin.number)))); });
    skip([&] { Combo3->setEditText(formatZero(numericValue(sales(rec::feedLines.number)))); });
}

void Form2::bt_prog_Click(int index) {
    if (index == 0) valide_form2();
    if (index == 1) test_form2();
}

QString Form2::sample(int index) const {
    return findChild<QLabel*>(arrayName(QStringLiteral("Label3"), index))->text();
}

// The sample between two rulers on the current printer, then the feed
// lines; every failing step is skipped.
void Form2::test_form2() {
    PrinterObject* printer = nullptr;
    skip([&] { printer = &ctx.Printer(); });
    if (!printer) return;
    skip([&] { printer->setFontName(QStringLiteral("Courier new")); });
    printer->setFontBold(tickValue(*Check1) != 0);
    skip([&] { printer->setFontSize(numericValue(Combo1->currentText())); });
    QString blanks;
    skip([&] { blanks = QString(qMax<qint16>(0, numericInt16(Combo2->currentText())), ' '); });
    qint16 feed = 0;
    skip([&] { feed = numericInt16(Combo3->currentText()); });
    skip([&] { printer->Print(); });
    for (int index : {0, 2, 0}) skip([&] { printer->Print(blanks + sample(index)); });
    const QString filler = Check2->isChecked() ? QStringLiteral(".") : QStringLiteral(" ");
    for (int i = 1; i <= feed; ++i) skip([&] { printer->Print(filler); });
    printer->setFontBold(false);
    skip([&] { printer->EndDoc(); });
}

// Each record goes to file 20 and to file 120 alike, whatever the station.
void Form2::valide_form2() {
    const auto both = [&](int number, const QByteArray& value) {
        ctx.store.put(files::sales, number, value);
        ctx.store.put(files::networkTill, number, value);
    };
    FixedString font(files::recordLength, codec::toBytes(Combo1->currentText()));
    font.replace(10, ":" + QByteArray::number(tickValue(*Check1)));
    both(rec::defaultPrinterFont.number, font.bytes());
    both(rec::leftMargin.number, codec::toBytes(Combo2->currentText()));
    both(rec::feedLines.number, codec::toBytes(Combo3->currentText()));
    both(rec::lineFeedHabit.number, Check2->isChecked() ? forcedFeed : plainFeed);
    close();
}
