#pragma once
// selimp4: the standard installation, the first screen of a start without a
// launch word. It lists the system's printers; a test ticket printed from
// W_FE1032.WDO on the one chosen, once the user says it came out, writes the
// fixed set of records of a ticket printer with a system driver and ends the
// program. "Suite" leads to the menu instead.
#include "shell/screen.h"

class QListWidget;

class selimp4 : public Screen {
    Q_OBJECT
  public:
    explicit selimp4(Context& ctx);
    void load() override;
    void bt_prog_Click(int index) override;

    QListWidget* combo4 = nullptr;

  private:
    void buildControls();
    void suite_selimp4();
    void edition_selimp4();
    void printTicketLines(int first, double& y);
    void writeStandardInstallation(const QString& printer);
};
