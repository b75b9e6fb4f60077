#include "serial/param_seriel.h"

#include <QLineEdit>
#include <QWidget>

#include "shell/context.h"
#include "store/codec.h"
#include "store/failure.h"
#include "store/record_files.h"
#include "store/record_store.h"

namespace {

// What sets this screen apart from its twin: no scan and no colour during a
// test, the printer's name and codes of each port, one slot only.
PortFormVariant notebookVariant() {
    PortFormVariant v;
    v.name = QStringLiteral("Param_seriel");
    v.bar = {QStringLiteral("000:129:Annuler")};
    v.instructions = QString::fromUtf8(
        "Choisissez le numéro de port série sur lequel est installé votre imprimante, et faites "
        "un test d'impression pour vérifier les paramètres");
    v.accentCaption = QStringLiteral(" Gestion des Accents");
    v.notebook = true;
    return v;
}

RecordRef codeRecord(int i) {
    return RecordRef{RecordFile::PortFile, rec::portCodesFirst + i};
}

}  // namespace

Param_seriel::Param_seriel(Context& ctx) : PortForm(ctx, notebookVariant()) {
    onClick(Label14, [this] { Label14_Click(); });
}

// Every statement is skipped on a failure. The screen always opens on port 1.
void Param_seriel::load() {
    fitAndDress();
    if (port_courant < 1) port_courant = 1;
    chaine_recue = ctx.chaine_travail;  // kept, and read by nothing
    port_imprime = 0;
    skip([&] { fillLists(); });
    skip([&] { makePortBoxes(); });
    skip([&] { decode_serie(); });
    skip([&] { select_serie(); });
}

// The file stays open afterwards. A blank record 1 leaves the lists blank.
void Param_seriel::decode_serie() {
    ouvre_souvprt(ctx.store, port_courant);
    Text1->setText(codec::boxText(ctx.get(rec::portName)).trimmed());
    ctx.chaine_travail = codec::boxText(ctx.get(rec::portSettings));
    showSettings();
    for (int i = 0; i < 12; ++i)
        Text8.at(i)->setText(codec::boxText(ctx.get(codeRecord(i))).left(3));
}

void Param_seriel::ecrit_serie() {
    ouvre_souvprt(ctx.store, port_courant);
    ctx.chaine_travail = listedSettings(settingsLists());
    ctx.put(rec::portSettings, codec::toBytes(ctx.chaine_travail));
    ctx.put(rec::portName, codec::toBytes(Text1->text().trimmed()));
    for (int i = 0; i < 12; ++i)
        ctx.put(codeRecord(i), codec::toBytes(Text8.at(i)->text().trimmed()));
    ctx.store.close(files::port);
}

void Param_seriel::select_serie() {
    paintBoxes(port_courant);
}

// The port being left is saved without asking, the one clicked read anew
// (the same port too).
void Param_seriel::Label8_Click(int index) {
    Frame2->show();
    if (port_courant != 0) ecrit_serie();
    port_courant = qint16(index);
    select_serie();
    decode_serie();
}

// No colour here: a failure only sets port_en_erreur.
void Param_seriel::test_impression() {
    port_en_erreur = printTestText(port_courant, port_imprime) ? 0 : -1;
}

void Param_seriel::Label14_Click() {
    test_impression();
    Frame3->show();
    if (port_en_erreur == -1)
        tellWrongPort(port_courant);
    else
        bonne_imp();
}

// Saved after either answer; the accent choice served the test only.
void Param_seriel::bonne_imp() {
    askGoodPrint(port_courant);
    ecrit_serie();
}

void Param_seriel::bt_prog_Click(int index) {
    if (index == 0) annule_param();
}

// What the current port holds since it was last saved is lost.
void Param_seriel::annule_param() {
    ctx.chaine_travail.clear();
    close();
}
