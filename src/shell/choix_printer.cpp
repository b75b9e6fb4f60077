#include "shell/choix_printer.h"

#include "shell/context.h"
#include "shell/image_banks.h"
#include "shell/printer_object.h"
#include "shell/system_printers.h"
#include "store/failure.h"

void liste_imprimantes(Context& ctx) {
    QStringList& listed = ctx.icc().CbPrinters;
    if (!listed.isEmpty()) return;
    ctx.nb_imprimantes = 0;
    for (const QString& name : ctx.platform.printers().names()) {
        listed << name;
        if (ctx.nb_imprimantes < qint16(ctx.tab_imprimantes.size()))
            ctx.tab_imprimantes[size_t(ctx.nb_imprimantes)] = name;
        ++ctx.nb_imprimantes;
    }
}

void choix_imprimante(Context& ctx, int index) {
    if (index < 0 || index >= int(ctx.tab_imprimantes.size()))
        throw Failure(QStringLiteral("Indice hors limites"));
    const QString& name = ctx.tab_imprimantes[size_t(index)];
    if (name.isEmpty()) throw Failure(QStringLiteral("Variable objet non définie"));
    ctx.setPrinter(std::make_unique<PrinterObject>(ctx.platform.printers(), name));
}

QString imprimante_defaut(Context& ctx) {
    const QString entry = ctx.platform.printers().defaultEntry();
    const qsizetype comma = entry.indexOf(QLatin1Char(','));
    return comma < 0 ? entry : entry.left(comma);
}
