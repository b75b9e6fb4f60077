#pragma once
// Form1, the expert screen of the ticket printer: every byte of every
// sequence, the port, the accents; the model buttons, the test ticket, the
// save and the closing questions; and, beyond the window's edge, the
// development tests.
#include <memory>

#include "expert/printer_form.h"

class MSComm;

class Form1 : public PrinterForm {
    Q_OBJECT
  public:
    explicit Form1(Context& ctx);
    ~Form1() override;

    void load() override;
    void bt_prog_Click(int index) override;
    // Closed by the window system: the closing questions, as "Fin".
    void closeRequested() override { quitte_expert(); }

    // The bar's actions.
    void quitte_expert();
    void imprime_test();
    void valide_parametres();
    void sauve_parametres() { saveRecords(); }

    // A model button: efface_zones, then the model's row.
    void preset(const QString& button);
    // Command8: a printer with a system driver; ends the program on its way.
    void autres_imprimantes();
    // Command18: the kitchen printer's screen takes the place of this one.
    void imprimante_cuisine();
    // Image1 and Label7: the vendor's page in the browser.
    void page_fabricant();

    // The development tests (Command4, Command9 to Command17).
    void test_code_barres();
    void test_ean_serie();
    void test_ean_usb();
    void test_graphique_serie();
    void test_graphique_usb();
    void test_cheque(int number);

    static const char* const vendorPage;
    static const char* const browserPath;

  private:
    void test_usb();
    void buildCommands();
    void buildTestButtons();
    void runSerialJob(const Job& job);
    void runUsbJob(const Job& job);
    // Connects a click to an action, keeping failures inside the slot.
    void onClick(QObject* control, const std::function<void()>& action);

    std::unique_ptr<MSComm> port_;
};
