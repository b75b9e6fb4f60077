#pragma once
// menuimp: the start-up screen and main menu. Its load prepares what every
// other screen relies on (files open, peripheral file chosen, theme loaded),
// acts on the launch word of record 195 and walks the user through selimp4.
#include "shell/screen.h"

class menuimp : public Screen {
    Q_OBJECT
  public:
    explicit menuimp(Context& ctx);
    void load() override;
    void bt_prog_Click(int index) override;
    // Closed by the window system: "Fin".
    void closeRequested() override { bt_prog_Click(0); }

  private:
    void buildControls();
    void chooseStation();
    void loadPictures();
    void actOnLaunchWord();
    void showOrEnd(const QString& screen, bool modal);
};
