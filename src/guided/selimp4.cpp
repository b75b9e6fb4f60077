#include "guided/selimp4.h"

#include <QListWidget>
#include <QPixmap>
#include <QStyledItemDelegate>

#include "shell/button_bar.h"
#include "shell/choix_printer.h"
#include "shell/context.h"
#include "shell/form_parts.h"
#include "shell/image_banks.h"
#include "shell/placing.h"
#include "shell/printer_object.h"
#include "store/codec.h"
#include "store/failure.h"
#include "store/fixed_string.h"
#include "store/param_table.h"
#include "store/record_store.h"
#include "store/records.h"
#include "store/switch_table.h"
#include "store/ticket_lines.h"

namespace {
constexpr int margin = 48;
constexpr double centreX = 1850;  // twips: the middle of an 80 mm roll

// Lines tall enough for a finger on a touch till; no style sheet, which
// would cost the first screen of every start its time.
class RoomyLines : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, 14);
    }
};
}  // namespace

selimp4::selimp4(Context& ctx) : Screen(ctx, QStringLiteral("selimp4")) {
    buildControls();
}

void selimp4::buildControls() {
    setWindowTitle(QStringLiteral("Installation facile standardisée"));
    resize(designWidth, designHeight);
    setBackground(*this, screenBackground);

    addText(*this, QStringLiteral("Label1"), QStringLiteral("Installation facile standardisée"),
            QRect(margin, 44, 560, 36), {.pointSize = 20, .bold = true});

    addCard(*this, QRect(margin, 96, 528, 484));
    addText(*this, QStringLiteral("Label2"),
            QStringLiteral("Si vous utilisez une imprimante ticket connectée en usb, avec des "
                           "rouleaux de 80 mm, cette imprimante apparait-elle dans la liste de "
                           "droite ?"),
            QRect(margin + 20, 112, 488, 84), {.pointSize = 13, .bold = true});
    const QColor yes(0x2e, 0x7d, 0x32), no(0xc6, 0x28, 0x28);
    addText(*this, QStringLiteral("Label4"), QStringLiteral("OUI"), QRect(margin + 20, 212, 64, 30),
            {.pointSize = 16, .bold = true, .colour = yes});
    addText(*this, QStringLiteral("Label3"),
            QStringLiteral("Cliquez sur l'imprimante dans la lliste puis sur le bouton 'édition' "
                           "ci-dessous"),
            QRect(margin + 92, 214, 416, 48));
    addText(*this, QStringLiteral("Label6"), QStringLiteral("NON"), QRect(margin + 20, 282, 64, 30),
            {.pointSize = 16, .bold = true, .colour = no});
    addText(*this, QStringLiteral("Label5"),
            QStringLiteral("Cliquez sur le bouton 'Suite' pour continuer le paramétrage"),
            QRect(margin + 92, 284, 416, 48));

    auto* image = make<QLabel>(QStringLiteral("Image1"));
    image->setGeometry(margin + 20, 364, 150, 150);
    image->setAlignment(Qt::AlignCenter);
    addText(*this, QStringLiteral("Label11"), QStringLiteral("80 mm"),
            QRect(margin + 20, 520, 150, 28),
            {.pointSize = 14, .bold = true, .align = Qt::AlignCenter});
    addText(*this, QStringLiteral("Label7"),
            QStringLiteral("Si votre imprimante n'apparait pas dans cette liste, c'est peut être "
                           "une imprimante série ou que le driver n'est pas installé, cliquez sur "
                           "le bouton 'Suite'."),
            QRect(margin + 196, 372, 312, 150), {.pointSize = 11, .italic = true});

    combo4 = make<QListWidget>(QStringLiteral("combo4"));
    combo4->setGeometry(600, 96, 376, 484);
    combo4->setSelectionMode(QAbstractItemView::SingleSelection);
    QFont listFont = combo4->font();
    listFont.setPointSize(13);
    combo4->setFont(listFont);
    combo4->setStyleSheet(
        QStringLiteral("QListWidget { border: 1px solid #b8c4d0; }"
                       "QListWidget::item { padding: 7px 6px; }"));

    prepareBar(2, QPoint(designWidth - margin - 180, 604), 100);
}

void selimp4::load() {
    place_ecran(*this);
    pose_cadre(*this);
    auto* image = findChild<QLabel*>(QStringLiteral("Image1"));
    QPixmap picture(QStringLiteral("kl_img_083.gif"));
    // Without the suite's picture the bank's ticket stands in its place.
    if (picture.isNull()) picture = ctx.icc().ticket2;
    image->setPixmap(picture.scaled(image->size(), Qt::KeepAspectRatio, Qt::SmoothTransformation));
    cree_bouton(*this, QStringLiteral("000:128:Suite"));
    cree_bouton(*this, QStringLiteral("001:000:Edition"));
    liste_imprimantes(ctx);
    combo4->clear();
    combo4->addItems(ctx.icc().CbPrinters);
}

void selimp4::bt_prog_Click(int index) {
    if (index == 0) suite_selimp4();
    if (index == 1) edition_selimp4();
}

void selimp4::suite_selimp4() {
    pose_switch(ctx.switchs, 160, 0);
    ecrit_switch(ctx.store, ctx.platform.now(), ctx.switchs);
    ctx.chaine_travail.clear();
    close();
}

// The test ticket; every failing step is skipped and the next one runs, so
// a printer that refuses the job still leads to the question.
void selimp4::edition_selimp4() {
    const QList<QListWidgetItem*> chosen = combo4->selectedItems();
    if (chosen.isEmpty()) {
        ctx.form97(QStringLiteral("Vous devez sélectionner une imprimante !"), 0);
        return;
    }
    const QString printer = chosen.first()->text();
    skip([&] { ouvre_fe1032(ctx.store, ctx.today()); });
    // Past the 21st entry the table holds nothing: the printer stays.
    skip([&] { choix_imprimante(ctx, combo4->row(chosen.first())); });
    double y = 0;
    printTicketLines(2, y);
    // The body of the ticket: a dark block between heading and foot.
    skip([&] { ctx.Printer().Line(300, y, 4000, y + 1000, 1, true); });
    y += 1000;
    printTicketLines(10, y);
    skip([&] { ctx.Printer().EndDoc(); });

    if (ctx.form97(QStringLiteral("ON|Le ticket s'est-il imprimé ?"), 4) != 6) {
        ctx.form97(QStringLiteral("Essayez une autre imprimante ou cliquez sur le bouton 'Suite' "
                                  "pour une aide au paramètrage."),
                   0);
        return;
    }
    writeStandardInstallation(printer);
    ctx.ui.endProgram();
}

// Records first to first + 7 of W_FE1032.WDO, each centred on 1850 twips in
// its own font, one under the other; a blank line is skipped.
void selimp4::printTicketLines(int first, double& y) {
    for (int number = first; number < first + 8; ++number) {
        TicketLine line;
        try {
            line = TicketLine::fromRecord(ctx.store.get(files::ticketLines, number));
        } catch (const Failure&) {
            continue;
        }
        const QString text = codec::boxText(line.texte).trimmed();
        if (text.isEmpty()) continue;
        ctx.chaine_travail = text;
        PrinterObject* printer = nullptr;
        skip([&] { printer = &ctx.Printer(); });
        if (!printer) continue;
        skip([&] { printer->setFontName(codec::boxText(line.police).trimmed()); });
        skip([&] { printer->setFontSize(line.taille); });
        printer->setFontBold(line.gras != 0);
        printer->setFontItalic(line.italique != 0);
        printer->setFontUnderline(line.souligne != 0);
        skip([&] { printer->CurrentX = centreX - printer->TextWidth(text) / 2; });
        printer->CurrentY = y;
        skip([&] { printer->Print(text); });
        skip([&] { y += printer->TextHeight(text); });
    }
}

// The fixed set of a ticket printer with a system driver, in its order.
void selimp4::writeStandardInstallation(const QString& printer) {
    const auto put = [&](const RecordRef& r, const QByteArray& value) {
        skip([&] { ctx.put(r, value); });
    };
    FixedString font(files::recordLength, "9");
    font.replace(10, ":0");
    put(rec::defaultPrinterFont, font.bytes());
    put(rec::printerKind, " ");
    put(rec::route, routeRecord("00", ctx.port_serie));
    put(rec::drawerOnPrinter, " ");
    for (int n = rec::drawerPulseFirst; n <= rec::drawerPulseLast; ++n)
        put(RecordRef{RecordFile::Peripheral, n}, "");
    put(rec::invoiceAtEachSale, "0");
    put(rec::ticketAtEachSale, "-1");
    put(rec::paperCut, " ");
    put(rec::accentMode, "0");
    put(rec::feedLines, "5");
    for (int n : {44, 55, 160}) pose_switch(ctx.switchs, n, 1);
    skip([&] { ecrit_switch(ctx.store, ctx.platform.now(), ctx.switchs); });
    skip([&] { ecrit_param(ctx.store, QStringLiteral("IMP_DEF_FACT"), printer); });
    put(rec::standardInstallDone, "1");
}
