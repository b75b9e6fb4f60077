#pragma once
// Form2: how the sales program prints a ticket on a printer with a system
// driver: character size and bold, blanks ahead of each line, lines at the
// end and whether they are forced. A test on the current printer shows
// whether the sample line comes out whole; "Valider" writes each setting to
// both w_cai020.wdo and w_perifx.wdo.
#include "shell/screen.h"

class QCheckBox;
class QComboBox;

class Form2 : public Screen {
    Q_OBJECT
  public:
    explicit Form2(Context& ctx);
    void load() override;
    void bt_prog_Click(int index) override;

    QComboBox *Combo1 = nullptr, *Combo2 = nullptr, *Combo3 = nullptr, *combo4 = nullptr;
    QCheckBox *Check1 = nullptr, *Check2 = nullptr;

  private:
    void buildControls();
    void buildRollZones();
    void preset(const char* size, const char* margin, const char* feed);
    void loadRecords();
    void test_form2();
    void valide_form2();
    QString sample(int index) const;
};
