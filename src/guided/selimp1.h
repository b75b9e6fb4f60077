#pragma once
// selimp1: the end of the guided installation. One click tells what prints
// the tickets and invoices (a USB ticket printer with its driver, a serial
// printer compatible with the common command set, or an A4 printer); after
// a question or two the screen writes the whole fixed set of records of
// that family and ends the program. "Valider" ends it without writing.
#include "shell/screen.h"

class selimp1 : public Screen {
    Q_OBJECT
  public:
    explicit selimp1(Context& ctx);
    void load() override;
    void bt_prog_Click(int index) override;
    // Closed by the window system, it unloads and writes nothing, as any
    // screen without a cancel of its own: the menu that showed it comes back,
    // so a window's close never ends the installation behind the user's back.

    // The zones in front of the three choices.
    void Label3_Click();  // a USB ticket printer
    void Label4_Click();  // a serial printer
    void Label5_Click();  // an A4 printer

    // The entry procedures of each family. The last three are called by no
    // control of this screen; they are kept for whoever gives them one.
    Q_INVOKABLE void test_serie_epson();
    Q_INVOKABLE void test_serie_metapace();
    Q_INVOKABLE void metapace_usb_t1();
    Q_INVOKABLE void metapace_usb_t3();

    // Each writes its family's records and ends the program.
    Q_INVOKABLE void valide_epson();
    Q_INVOKABLE void valide_metapace();
    Q_INVOKABLE void valide_imprimante_usb();

    // What the two serial families write differently.
    struct SerialFamily;

  private:
    void buildControls();
    // The serial branch: the port scan, then the route and settings found.
    void testSerial(QChar separator, void (selimp1::*valide)());
    void metapaceUsb(const char* family);
    void writeUsbRoute();
    void valideSerial(const SerialFamily& family);
    void fin_auto();
    void suite_ecran() {}
};
