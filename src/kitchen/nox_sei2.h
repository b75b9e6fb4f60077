#pragma once
// nox_sei2, the kitchen printer's screen: the expert screen's twin on the
// kitchen's own file (w_imprc5.wdo on file number 20 while it is open) and on
// the kitchen port of icc. "Fin" always saves, asks whether the kitchen has a
// printer of its own, and gives the place back to Form1.
#include "expert/printer_form.h"

class nox_sei2 : public PrinterForm {
    Q_OBJECT
  public:
    explicit nox_sei2(Context& ctx);

    void load() override;
    void bt_prog_Click(int index) override;
    // Closed by the window system: as "Fin", which saves and gives the place
    // back to Form1.
    void closeRequested() override { fin_cuisine(); }

    void fin_cuisine();
    void imprime_cuisine();
    void sauve_cuisine() { saveRecords(); }
    void ouvre_ind_poste();
};
