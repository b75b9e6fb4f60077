#include "kitchen/nox_sei2.h"

#include <QComboBox>
#include <QPushButton>
#include <exception>

#include "expert/printer_presets.h"
#include "print/test_ticket.h"
#include "shell/context.h"
#include "shell/image_banks.h"
#include "store/failure.h"
#include "store/numeric.h"
#include "store/record_files.h"

namespace {

// How this screen differs from Form1: its title, a bar without "Valider",
// a lower-case "caisse" in its second sample, no drawer and no USB, and
// Label13 as a plain heading; its records are the kitchen file's, on file
// number 20, whatever the station.
PrinterFormVariant kitchenVariant() {
    PrinterFormVariant v;
    v.name = QStringLiteral("nox_sei2");
    v.caption = QStringLiteral("Imprimante Cuisine");
    v.bar = {QStringLiteral("000:108:Fin"), QStringLiteral("001:099:Imprimer")};
    v.samples = {QStringLiteral("Test Imprimante Ticket"), QStringLiteral("Logiciel de caisse"),
                 QStringLiteral("Texte en Gras"), QStringLiteral("Texte en Italique"),
                 QString::fromUtf8("Accents :  é è ê à ç")};
    v.drawer = false;
    v.usb = false;
    v.heading = QStringLiteral("Imprimante Cuisine");
    v.printerFile = RecordFile::Kitchen;
    return v;
}

}  // namespace

nox_sei2::nox_sei2(Context& ctx) : PrinterForm(ctx, kitchenVariant()) {
    auto* epson =
        addModelButton(QStringLiteral("Command3"),
                       QString::fromUtf8("Imprimante Standard Compatible EPSON sur port Série"), 0);
    connect(epson, &QPushButton::clicked, this,
            [this] { applyPreset(*this, printerPreset(QStringLiteral("Command3"))); });
}

void nox_sei2::load() {
    fitAndDress();
    skip([&] {
        this->ctx.store.close(files::sales);
        this->ctx.ui.letEventsRun();
        ouvre_imprc5(this->ctx.store);
        this->ctx.ui.letEventsRun();
    });
    loadRecords();
}

void nox_sei2::bt_prog_Click(int index) {
    if (index == 0) fin_cuisine();
    if (index == 1) imprime_cuisine();
}

void nox_sei2::imprime_cuisine() {
    try {
        ctx.mode_accent_cuisine = numericInt16(Combo1->currentText());
    } catch (const Failure&) {
        ctx.ui.messageBox(QStringLiteral("Erreur de port"));
        return;
    }
    MSComm* port = ctx.icc().MSCuisine.get();
    if (!port) {
        ctx.ui.messageBox(QStringLiteral("Erreur de port"));
        return;
    }
    printOnSerial(*port, composeKitchenTicket(ticketFields()), ctx.mode_accent_cuisine, true);
}

void nox_sei2::ouvre_ind_poste() {
    ouvre_fich142(ctx.store, ctx.today());
}

void nox_sei2::fin_cuisine() {
    fatalOnFailure([&] {
        sauve_cuisine();
        ouvre_ind_poste();
        const bool ownPrinter =
            ctx.form97(QString::fromUtf8("Utilisez vous une imprimante en cuisine indépendante ?"),
                       4) == 6;
        ctx.put(rec::kitchenOwnPrinter, ownPrinter ? "1" : "0");
        ctx.store.close(files::main);
        ctx.store.close(files::sales);
    });
    ctx.ui.showScreen(QStringLiteral("Form1"), false);
    setAttribute(Qt::WA_DeleteOnClose);
    close();
}
