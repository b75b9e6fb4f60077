#include "guided/selimp1.h"

#include <QPixmap>

#include "shell/button_bar.h"
#include "shell/context.h"
#include "shell/form_parts.h"
#include "shell/image_banks.h"
#include "shell/placing.h"
#include "store/codec.h"
#include "store/failure.h"
#include "store/fixed_string.h"
#include "store/records.h"
#include "store/switch_table.h"

namespace {

constexpr int yes = 6;
constexpr int margin = 48;

// One choice of the screen: its picture, its text, and the zone in front.
struct Choice {
    const char* zone;
    const char* label;
    const char* text;
    const char* picture;
    int top;
};
const Choice choices[] = {
    {"Label3", "Label2(3)", "Une imprimante ticket connectée en USB avec le driver installé.",
     "kl_img_008.gif", 150},
    {"Label4", "Label2(4)", "Une imprimante Ticket EPSON ou Compatible Epson connectée en série **",
     "kl_img_070.gif", 270},
    {"Label5", "Label2(5)", "Une imprimante A4 Laser ou Jet d'encre", "kl_img_066.gif", 390},
};

}  // namespace

// valide_epson and valide_metapace differ in the pulse's on and off times,
// the shift of the ticket, and where record 98 goes: the common family writes
// it through file 20 whatever the station. That difference is the sales
// program's, and it stays.
struct selimp1::SerialFamily {
    const char* pulseOn;   // 704
    const char* pulseOff;  // 705
    const char* shift;     // 19
    RecordFile init3File;  // 98
};

namespace {
constexpr selimp1::SerialFamily epson{"100", "250", "0", RecordFile::Sales};
constexpr selimp1::SerialFamily metapace{"055", "121", "5", RecordFile::Peripheral};
}  // namespace

selimp1::selimp1(Context& ctx) : Screen(ctx, QStringLiteral("selimp1")) {
    buildControls();
}

void selimp1::buildControls() {
    setWindowTitle(QStringLiteral("Sélection de l'imprimante"));
    resize(designWidth, designHeight);
    setBackground(*this, screenBackground);
    addText(*this, QStringLiteral("Label1"),
            QStringLiteral("Pour mes tickets / Facturettes,  j'utilise ?"),
            QRect(margin, 40, 700, 36), {.pointSize = 20, .bold = true});
    addText(*this, QStringLiteral("Label9"), QStringLiteral("Choix de l'imprimante :"),
            QRect(margin, 96, 400, 28), {.pointSize = 13, .bold = true});
    for (const Choice& c : choices) {
        addCard(*this, QRect(margin, c.top, 600, 104));
        auto* image = make<QLabel>(QStringLiteral("Image_%1").arg(QLatin1String(c.zone)));
        image->setGeometry(margin + 12, c.top + 8, 88, 88);
        image->setAlignment(Qt::AlignCenter);
        image->setProperty("file", QString::fromLatin1(c.picture));
        addText(*this, QString::fromLatin1(c.label), QString::fromUtf8(c.text),
                QRect(margin + 116, c.top + 14, 470, 76),
                {.pointSize = 14, .bold = true, .align = Qt::AlignLeft | Qt::AlignVCenter});
    }
    addText(*this, QStringLiteral("Label2(6)"),
            QStringLiteral("** Est considéré comme 'SERIE' toute imprimante Série, avec un "
                           "adaptateur usb/série ou en usb avec émulation série."),
            QRect(margin, 506, 600, 44), {.pointSize = 10, .italic = true});
    addCard(*this, QRect(680, 150, 296, 344));
    addText(*this, QStringLiteral("Label2(0)"),
            QStringLiteral("Votre imprimante doit être visible dans le panneau de configuration "
                           "de Windows et vous devez pouvoir imprimer une page de test."),
            QRect(696, 166, 264, 120), {.pointSize = 11});
    addText(*this, QStringLiteral("Label2(1)"),
            QStringLiteral("Vous pouvez déclarer cette imprimante par défaut dans windows "
                           "(Toutes les impressions seront dirigées vers cette imprimante) ou "
                           "utiliser la redirection  d'imprimante dans 'Outils' et 'Sel.Impr'"),
            QRect(696, 294, 264, 190), {.pointSize = 11});

    // The transparent zones over the three choices take their clicks.
    const std::pair<const char*, void (selimp1::*)()> zones[] = {
        {"Label3", &selimp1::Label3_Click},
        {"Label4", &selimp1::Label4_Click},
        {"Label5", &selimp1::Label5_Click}};
    for (size_t i = 0; i < std::size(zones); ++i) {
        auto* zone = make<ClickLabel>(QString::fromLatin1(zones[i].first));
        zone->setGeometry(margin, choices[i].top, 600, 104);
        zone->setCursor(Qt::PointingHandCursor);
        connect(zone, &ClickLabel::clicked, this,
                [this, act = zones[i].second] { guard([&] { (this->*act)(); }); });
    }
    prepareBar(4, QPoint(margin, 604), 100);
}

void selimp1::load() {
    skip([&] { place_ecran(*this); });
    skip([&] { pose_cadre(*this); });
    for (const char* definition :
         {"000:124:Valider", "001:099:Imp A4", "002:000:Ticket", "003:000:Ticket"})
        skip([&] { cree_bouton(*this, QString::fromLatin1(definition)); });
    // The suite's pictures when the data directory has them; the bank's own
    // otherwise, so the choices are told apart on a fresh till.
    const QPixmap fallback[] = {ctx.icc().ticket2, ctx.icc().p11Picture(0),
                                ctx.icc().p11Picture(99)};
    int i = 0;
    for (const Choice& c : choices) {
        auto* image = findChild<QLabel*>(QStringLiteral("Image_%1").arg(QLatin1String(c.zone)));
        QPixmap picture(QString::fromLatin1(c.picture));
        if (picture.isNull()) picture = fallback[i];
        ++i;
        skip([&] {
            image->setPixmap(
                picture.scaled(image->size(), Qt::KeepAspectRatio, Qt::SmoothTransformation));
        });
    }
    for (const char* zone : {"Label3", "Label4", "Label5"})
        findChild<QWidget*>(QString::fromLatin1(zone))->raise();
}

// Only slot 0 acts, whether or not anything was chosen.
void selimp1::bt_prog_Click(int index) {
    if (index == 0) fin_auto();
}

void selimp1::fin_auto() {
    ctx.ui.endProgram();
}

void selimp1::Label3_Click() {
    ctx.format_facture = 0;
    valide_imprimante_usb();
    suite_ecran();
}

void selimp1::Label4_Click() {
    test_serie_epson();
}

// The invoice format has no cancel: whatever it leaves goes on.
void selimp1::Label5_Click() {
    ctx.ui.showScreen(QStringLiteral("bienvenu015"), true);
    valide_imprimante_usb();
    suite_ecran();
}

void selimp1::test_serie_epson() {
    testSerial(QLatin1Char('#'), &selimp1::valide_epson);
}

void selimp1::test_serie_metapace() {
    testSerial(QLatin1Char('|'), &selimp1::valide_metapace);
}

void selimp1::testSerial(QChar separator, void (selimp1::*valide)()) {
    // The records as the screens show them: a file the sales program made
    // but never wrote gives a blank port and no settings.
    const QString route = codec::fromBytes(visibleRecord(ctx.get(rec::route)));
    const QString settings =
        codec::fromBytes(visibleRecord(ctx.get(rec::serialSettings))).trimmed();
    ctx.chaine_travail = QStringLiteral("##") + route.mid(3, 2) + separator + settings;
    ctx.ui.showScreen(QStringLiteral("Param_serie"), true);
    if (ctx.chaine_travail.trimmed().isEmpty()) return;  // the scan was cancelled

    ctx.put(rec::printerKind, "0");
    ctx.put(rec::usbFamily, " ");
    FixedString r70(files::recordLength, "01:");
    r70.replace(4, codec::toBytes(ctx.chaine_travail.mid(2, 2)));
    ctx.put(rec::route, r70.bytes());
    ctx.put(rec::serialSettings, codec::toBytes(ctx.chaine_travail.mid(5).toLower()));
    (this->*valide)();
}

void selimp1::metapace_usb_t1() {
    metapaceUsb("0");
}

void selimp1::metapace_usb_t3() {
    metapaceUsb("2");
}

void selimp1::metapaceUsb(const char* family) {
    ctx.put(rec::printerKind, "1");
    ctx.put(rec::usbFamily, family);
    writeUsbRoute();
    valide_metapace();
}

// "00", a blank, then port_serie formatted "0" in characters 4 and 5.
void selimp1::writeUsbRoute() {
    ctx.put(rec::route, routeRecord("00", ctx.port_serie));
}

void selimp1::valide_epson() {
    valideSerial(epson);
}

void selimp1::valide_metapace() {
    valideSerial(metapace);
}

void selimp1::valideSerial(const SerialFamily& family) {
    // The drawer on the printer, and its pulse: 027 112 048, on, off.
    ctx.put(rec::drawerOnPrinter, "1");
    const char* pulse[] = {"027", "112", "048", family.pulseOn, family.pulseOff};
    for (int i = 1; i <= 11; ++i)
        ctx.put(RecordRef{RecordFile::Peripheral, rec::drawerOnPrinter.number + i},
                i <= 5 ? pulse[i - 1] : " ");

    const bool ticket =
        ctx.form97(QStringLiteral("ON|Voulez-vous imprimer un ticket de caisse à chaque vente ?"),
                   4) == yes;
    ctx.put(rec::invoiceAtEachSale, "0");
    ctx.put(rec::ticketAtEachSale, ticket ? "-1" : "0");
    ctx.put(rec::paperCut, "029 086 048");
    ctx.put(rec::init2, "027116016");
    ctx.put(RecordRef{family.init3File, rec::init3.number}, " ");
    ctx.put(rec::boldOn, "027069001");
    ctx.put(rec::boldOff, "027069000");
    ctx.put(rec::italicOn, "027045049");
    ctx.put(rec::italicOff, "027045048");
    ctx.put(rec::leftMargin, family.shift);
    ctx.put(rec::accentMode, "2");
    ctx.put(rec::feedLines, "5");

    pose_switch(ctx.switchs, 44, 0);
    pose_switch(ctx.switchs, 55, 1);
    ecrit_switch(ctx.store, ctx.platform.now(), ctx.switchs);
    ctx.form97(QStringLiteral("Votre imprimante est configurée !"), 0);
    fin_auto();
}

void selimp1::valide_imprimante_usb() {
    FixedString font(files::recordLength, "9");
    font.replace(10, ":0");
    ctx.put(rec::defaultPrinterFont, font.bytes());
    ctx.put(rec::printerKind, " ");
    writeUsbRoute();
    ctx.put(rec::drawerOnPrinter, " ");
    for (int n = rec::drawerPulseFirst; n <= rec::drawerPulseLast; ++n)
        ctx.put(RecordRef{RecordFile::Peripheral, n}, "");

    // A ticket printer gets its ticket set up behind the question; an
    // invoice format is asked about invoices.
    const bool ticketCase = ctx.format_facture == 0;
    const bool yesToIt =
        ctx.form97(
            ticketCase
                ? QStringLiteral("ON|Voulez-vous imprimer un ticket de caisse à chaque vente ?")
                : QStringLiteral("ON|Voulez-vous imprimer une facture à chaque vente ?"),
            4) == yes;
    if (ticketCase) ctx.ui.showScreen(QStringLiteral("Form2"), true);
    ctx.put(rec::invoiceAtEachSale, !ticketCase && yesToIt ? "1" : "0");
    ctx.put(rec::ticketAtEachSale, ticketCase && yesToIt ? "-1" : "0");

    ctx.put(rec::paperCut, " ");
    ctx.ui.letEventsRun();
    ctx.put(rec::accentMode, "0");
    ctx.put(rec::feedLines, "5");
    pose_switch(ctx.switchs, 44, 1);
    pose_switch(ctx.switchs, 55, 1);
    ecrit_switch(ctx.store, ctx.platform.now(), ctx.switchs);
    ctx.form97(QStringLiteral("Votre imprimante est configurée, vous devez la déclarer comme "
                              "imprimante par defaut dans windows ou utiliser la redirection dans "
                              "outils et Sélection !"),
               0);
    fin_auto();
}
