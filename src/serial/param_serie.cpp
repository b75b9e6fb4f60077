#include "serial/param_serie.h"

#include <QComboBox>
#include <QTimer>

#include "print/port_parameter_string.h"
#include "shell/context.h"
#include "shell/shape.h"
#include "store/codec.h"
#include "store/failure.h"

namespace {

// The port's box while it is printed on, and after it failed.
constexpr int printingBack = 0xC0FFC0;  // light green
constexpr int failedBack = 0x8080FF;    // light red

constexpr int scanStep = 3000;
constexpr int blinkStep = 1500;

// What sets this screen apart from its twin: the scan, the "OK" and the
// lamp, a "param" slot that puts the defaults back.
PortFormVariant scanVariant() {
    PortFormVariant v;
    v.name = QStringLiteral("Param_serie");
    v.bar = {QStringLiteral("000:124:Annuler"), QStringLiteral("001:146:param")};
    v.instructions = QString::fromUtf8(
        "Choisissez le numéro de port série sur lequel est installé votre imprimante, si vous ne "
        "le connaissez pas essayez les ports en cliquant sur le bouton imprimer ou cliquez sur "
        "'Lancer le Scan' et appuyez sur le bouton  'Imprimante OK' lorsque votre imprimante "
        "imprime des lignes.");
    v.accentCaption = QStringLiteral("Gestion des Accents");
    v.scan = true;
    return v;
}

}  // namespace

Param_serie::Param_serie(Context& ctx) : PortForm(ctx, scanVariant()) {
    onClick(Label11, [this] { Label11_Click(); });
    onClick(Label13, [this] { Label13_Click(); });
    onClick(Label14, [this] { Label14_Click(); });
    connect(Timer1, &QTimer::timeout, this, [this] { guard([this] { test_port(); }); });
    connect(Timer2, &QTimer::timeout, this, [this] { guard([this] { Timer2_Timer(); }); });
}

// Every statement is skipped on a failure: the load never stops.
void Param_serie::load() {
    fitAndDress();
    port_courant = 0;
    chaine_recue = ctx.chaine_travail;
    skip([&] { fillLists(); });
    skip([&] { makePortBoxes(); });
    skip([&] { decode_serie(); });
    skip([&] { select_serie(port_decode); });
}

void Param_serie::decode_serie() {
    ctx.chaine_travail = chaine_recue;
    const PortParameter given = decodePortParameter(ctx.chaine_travail);
    port_decode = qint16(given.port);
    ctx.chaine_travail = given.settings;
    // Out of range falls back to 1 here, where select_serie takes 3.
    if (port_decode < 1 || port_decode > 12) port_decode = 1;
    port_courant = port_decode;
    if (ctx.chaine_travail.trimmed().isEmpty()) ctx.chaine_travail = defaultPortSettings;
    showSettings();
}

void Param_serie::select_serie(qint16& port) {
    if (port < 1 || port > 12) port = 3;
    paintBoxes(port);
}

void Param_serie::test_port() {
    if (scan_arrete == -1) {
        scan_arrete = 0;
        return;
    }
    if (++port_courant > 12) port_courant = 1;
    select_serie(port_courant);
    test_impression();
}

void Param_serie::test_impression() {
    port_en_erreur = 0;
    setBackColor(*Label8.at(port_courant), printingBack);
    if (!printTestText(port_courant, port_courant)) {
        port_en_erreur = -1;
        setBackColor(*Label8.at(port_courant), failedBack);
    }
}

void Param_serie::bonne_imp() {
    if (!askGoodPrint(port_courant)) return;
    ctx.chaine_travail = portParameterString(port_courant, listedSettings(settingsLists()));
    ctx.put(rec::accentMode, codec::toBytes(Combo5->currentText().left(1)));
    close();
}

void Param_serie::Label11_Click() {
    Frame1->show();
    Frame2->hide();
    Frame3->show();
    test_port();
    setInterval(Timer1, scanStep);
    setInterval(Timer2, blinkStep);
}

void Param_serie::Label13_Click() {
    scan_arrete = -1;
    setInterval(Timer1, 0);
    setInterval(Timer2, 0);
    Frame3->hide();
    Frame1->hide();
    Frame2->show();
    bonne_imp();
}

// Also the plain choice of a port when no scan runs. After a scan, the lamp
// keeps blinking and the waiting texts stay up: only Timer1 stops.
void Param_serie::Label8_Click(int index) {
    setInterval(Timer1, 0);
    scan_arrete = -1;
    Frame1->hide();
    Frame2->show();
    port_courant = qint16(index);
    qint16 chosen = qint16(index);
    select_serie(chosen);
}

void Param_serie::Label14_Click() {
    test_impression();
    if (port_en_erreur == -1)
        tellWrongPort(port_courant);
    else
        bonne_imp();
}

void Param_serie::Timer2_Timer() {
    Shape6->setVisible(Shape6->isHidden());
}

void Param_serie::bt_prog_Click(int index) {
    if (index == 0) annule_param();
    if (index == 1) remet_defaut();
}

void Param_serie::annule_param() {
    ctx.chaine_travail.clear();
    close();
}

// A text without "##": the port falls back to 1, the lists take the default.
void Param_serie::remet_defaut() {
    ctx.chaine_travail = defaultPortSettings;
    load();
}
