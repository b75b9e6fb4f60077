#pragma once
// Param_serie, the port scan: finds on which serial port a ticket printer
// hangs, and with which settings it prints legibly, by printing a test text
// on the chosen port or on one port after the other every three seconds,
// until the user says that paper came out. It takes a port parameter string
// in chaine_travail and leaves the confirmed one there (the empty text when
// cancelled), with the accent digit in record 84.
#include "serial/port_form.h"

class Param_serie : public PortForm {
    Q_OBJECT
  public:
    explicit Param_serie(Context& ctx);

    void load() override;  // Form_Load; run again by "param"
    void bt_prog_Click(int index) override;
    // Closed by the window system: cancelled, the empty text.
    void closeRequested() override { annule_param(); }
    void Label8_Click(int index) override;

    void decode_serie();
    void select_serie(qint16& port);
    void test_port();
    void test_impression();
    void bonne_imp();
    void annule_param();
    void remet_defaut();

    qint16 port_decode = 0;
    // -1: the next test_port only clears it. Not reset by Form_Load.
    qint16 scan_arrete = 0;

  private:
    void Label11_Click();  // starts the scan
    void Label13_Click();  // "OK": the printer has reacted
    void Label14_Click();  // a test print on the selected port
    void Timer2_Timer();   // the lamp blinks
};
