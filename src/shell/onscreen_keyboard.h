#pragma once
// The on-screen keyboard of the entry dialogs ("Clavier"). It takes
// "message|value" from msg_dialogue, lets the value be edited with AZERTY keys
// and leaves the value in msg_dialogue: the edited one on "Valider", the one
// it was given on "Annuler".
#include "shell/screen.h"

class EntryBox;
class QPushButton;

class OnScreenKeyboard : public Screen {
    Q_OBJECT
  public:
    explicit OnScreenKeyboard(Context& ctx);
    void load() override;
    void bt_prog_Click(int index) override;
    // Closed by the window system: "Annuler", the value it was given.
    void closeRequested() override { finish(given_); }

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    QPushButton* addKey(const QString& name, const QString& caption, int column, int row, int span);
    void type(const QString& text);
    void toggleShift();
    void finish(const QString& value);

    QString given_;
    bool shift_ = false;
    QLabel* Label1_ = nullptr;
    EntryBox* Text1_ = nullptr;
    std::vector<QPushButton*> letters_;
};
