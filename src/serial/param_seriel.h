#pragma once
// Param_seriel, the port notebook behind the menu's "Série": each of the
// twelve serial ports keeps its settings, a printer's name and twelve codes
// in a file of its own (Souvprt<n>.wdo). The user clicks from port to port,
// each port left is saved, and a test print tries the settings. It takes
// nothing from its caller and gives nothing back.
#include "serial/port_form.h"

class Param_seriel : public PortForm {
    Q_OBJECT
  public:
    explicit Param_seriel(Context& ctx);

    void load() override;  // Form_Load
    void bt_prog_Click(int index) override;
    // Closed by the window system: as "Annuler".
    void closeRequested() override { annule_param(); }
    void Label8_Click(int index) override;

    void decode_serie();  // the port's file to the controls
    void ecrit_serie();   // the controls to the port's file
    void select_serie();
    void test_impression();
    void bonne_imp();
    void annule_param();

    // The number the test text prints: 0, always. The port that matters is the
    // box the user clicked.
    qint16 port_imprime = 0;

  private:
    void Label14_Click();
};
