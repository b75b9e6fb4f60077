// The ways out of the expert screen that write the closing records: "Fin"
// with its questions, and the dialogue for a printer with a system driver.
#include <QCheckBox>

#include "expert/form1.h"
#include "shell/context.h"
#include "store/fixed_string.h"
#include "store/numeric.h"

namespace {

constexpr int yes = 6;

// The records that Command8 writes through file 20 whatever the station.
RecordRef throughFile20(const RecordRef& r) {
    return RecordRef{RecordFile::Sales, r.number};
}

// A character size of the default printer: 7 to 24, anything else is 9.
double sizeOrDefault(double size) {
    return size < 7 || size > 24 ? 9 : size;
}

}  // namespace

void Form1::quitte_expert() {
    if (ctx.form97(QString::fromUtf8(
                       "Si vous avez modifié le parametrage avez vous pensé à cliquer sur le "
                       "bouton 'Valider' ?, si vous ne souhaitez pas enregistrer les "
                       "modification repondez 'Annuler' !"),
                   4) == yes)
        sauve_parametres();
    const bool serialOrMetapace =
        ctx.form97(QString::fromUtf8(
                       "Avez vous connecté une imprimante de caisse compatible Epson sur un port "
                       "série (ou une imprimante metapace usb) sur votre ordinateur ?, pour toute "
                       "autre imprimante répondre 'Annuler'"),
                   4) == yes;
    if (!serialOrMetapace) {
        ctx.put(rec::ticketAtEachSale, "0");
        ctx.put(rec::route, routeRecord("00", ctx.port_serie));
        ctx.put(rec::printerKind, " ");
    } else {
        if (check2() == 0) {
            ctx.put(rec::route, routeRecord("01", ctx.port_serie));
            ctx.put(rec::printerKind, "0");
        } else {
            ctx.put(rec::printerKind, "-1");
        }
        const bool ticket =
            ctx.form97(QStringLiteral("Voulez-vous imprimer un ticket à chaque vente ?"), 4) == yes;
        ctx.put(rec::ticketAtEachSale, ticket ? "-1" : "0");
    }
    ctx.ui.endProgram();
}

void Form1::autres_imprimantes() {
    if (ctx.form97(QString::fromUtf8("Votre imprimante est-elle connectée avec un cable parallèle "
                                     "ou usb autre que la Metapace/Samsung SRP 350 ?"),
                   4) != yes)
        return;
    ctx.form97(QString::fromUtf8(
                   "Vous devez installer le driver windows correspondant à votre imprimante, puis "
                   "déclarez que vous utilisez cette imprimante par défaut, Le logiciel imprimera "
                   "directement sur l'imprimante par defaut !"),
               0);
    const RecordRef font = throughFile20(rec::defaultPrinterFont);
    double size = sizeOrDefault(numericValue(visibleRecord(ctx.get(font))));
    ctx.form97(QString::fromUtf8("Entrez la grosseur des caracteres pour l'impression sur votre "
                                 "imprimante ticket par defaut ?|") +
                   QString::number(size),
               129);
    size = sizeOrDefault(numericValue(ctx.msg_dialogue));
    FixedString record(files::recordLength, QByteArray::number(size));
    const bool bold =
        ctx.form97(QStringLiteral("ON|Voulez vous une impression en gras ?"), 4) == yes;
    record.replace(10, bold ? ":1" : ":0");
    ctx.put(font, record.bytes());

    ctx.put(throughFile20(rec::drawerOnPrinter), " ");
    for (int n = rec::drawerPulseFirst; n <= rec::drawerPulseLast; ++n)
        ctx.put(throughFile20(RecordRef{rec::drawerOnPrinter.file, n}), "");
    setCheck2(0);
    ctx.put(rec::ticketAtEachSale, "0");
    ctx.put(throughFile20(rec::route), routeRecord("00", ctx.port_serie));
    ctx.put(throughFile20(rec::printerKind), " ");
    const bool ticket =
        ctx.form97(QString::fromUtf8("Voulez-vous imprimer un ticket à chaque vente ?"), 4) == yes;
    ctx.put(rec::ticketAtEachSale, ticket ? "-1" : "0");
    ctx.form97(QString::fromUtf8("Vous n'avez aucun autre reglage à faire dans notre logiciel, "
                                 "votre imprimante est parametrée !"),
               0);
    ctx.ui.endProgram();
}
