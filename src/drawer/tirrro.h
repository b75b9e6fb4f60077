#pragma once
// tirrro, the cash drawer on a serial port of its own, driven by a relay: the
// port and its settings, the string that closes the relay (the drawer pops
// open), the string that releases it and the time between the two, kept in
// records 190 to 194 of WFICH142.WDO where the sales program finds them.
// "Tiroir" saves and fires the pulse as a test.
#include <map>

#include "shell/screen.h"
#include "shell/settings_lists.h"
#include "store/records.h"

class QCheckBox;
class QComboBox;
class QLineEdit;

class tirrro : public Screen {
    Q_OBJECT
  public:
    explicit tirrro(Context& ctx);

    void load() override;  // Form_Load
    void bt_prog_Click(int index) override;

    void decode_serie();  // records to controls, with their ranges
    void sauve_pp();      // controls to records, as they stand
    void tiroir_indep();  // the pulse, from the records just saved

    QCheckBox* Check1 = nullptr;      // 0, 1 or 2 (grey)
    QComboBox* Combo10 = nullptr;     // "Com 1" to "Com 12"
    QLineEdit* Text11 = nullptr;      // the wait in milliseconds
    std::map<int, QLineEdit*> Text1;  // 0-4 opening codes, 10-14 closing codes
    QComboBox* Combo1 = nullptr;
    QComboBox* Combo2 = nullptr;
    QComboBox* Combo3 = nullptr;
    QComboBox* combo4 = nullptr;
    QLabel* Image1 = nullptr;

  private:
    void buildControls();
    SettingsLists settingsLists() const { return {Combo1, Combo2, Combo3, combo4}; }
    QString recordText(const RecordRef& r);
    int check1() const;
    void setCheck1(double value);
};
