#pragma once
// etiqqq: the label printer, reached through the launch word "#ETIQUE#".
// The user picks the system printer that takes the labels and says whether a
// label printer is used at all; without one, labels go to the default
// printer. Stored in IMP_ETIQ_DEF and record 140 of WFICH142.WDO.
#include "shell/screen.h"

class QCheckBox;
class QComboBox;
class QListWidget;
class QPushButton;

class etiqqq : public Screen {
    Q_OBJECT
  public:
    explicit etiqqq(Context& ctx);
    void load() override;

    QComboBox* CbPrinters = nullptr;
    QCheckBox* Check1 = nullptr;  // hidden: is a label printer used
    ClickLabel* bt_on = nullptr;
    ClickLabel* Image2 = nullptr;
    QListWidget* List1 = nullptr;  // hidden: the names found, for checking
    QPushButton *Command1 = nullptr, *Command2 = nullptr;

    // Indices in the system's list of the printer named by IMP_ETIQ_DEF and
    // of the default printer; -1 when not found.
    int ind_etiq = -1;
    int ind_defaut = -1;

    // "No label printer of its own": on a confirmation, record 140 goes blank
    // and the screen closes; IMP_ETIQ_DEF stays. No control calls it.
    Q_INVOKABLE void annule_etiq();

  private:
    void buildControls();
    void listPrinters();
    void affiche_bouton();
    int check1() const;
    void setCheck1(double value);
    void bt_on_Click();
    void Image2_Click();
    void Command1_Click();
    void Command2_Click();
};
