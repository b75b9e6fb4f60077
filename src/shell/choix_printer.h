#pragma once
// The printer choice: the system's printers enumerated once a run into
// CbPrinters (on icc) and tab_imprimantes, one of them made the current
// printer, and the default printer's name.
#include <QString>

class Context;

// Fills CbPrinters and tab_imprimantes in the system's order, unless
// CbPrinters already holds a name: printers added later in the run are not
// seen. Past 21 printers a name is still listed and the printer is dropped.
void liste_imprimantes(Context& ctx);

// Makes entry `index` of tab_imprimantes the current printer: all further
// printing goes there. Throws Failure for an index outside 0 to 20
// ("Indice hors limites") or an entry that holds no printer; the current
// printer then stays as it was.
void choix_imprimante(Context& ctx, int index);

// The default printer's name: the system's entry up to its first comma (the
// entry reads name, driver, port); empty when the system has none.
QString imprimante_defaut(Context& ctx);
