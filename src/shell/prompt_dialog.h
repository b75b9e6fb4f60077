#pragma once
// form97, the one prompt dialog: driven by msg_dialogue and retour_dialogue of
// the context, its kind on entry and its reply on return.
#include <map>

#include "shell/screen.h"

class QLineEdit;
class QCheckBox;
struct PromptMessage;

class form97 : public Screen {
    Q_OBJECT
  public:
    explicit form97(Context& ctx);
    ~form97() override;
    void load() override;  // reads msg_dialogue and retour_dialogue
    void bt_prog_Click(int index) override;
    void closeRequested() override;

    static constexpr QSize designSize{640, 300};

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    void buildControls();
    void showTickBox(const QString& tail);
    void setTick(int value);
    void createKindSlots(const PromptMessage& m);
    void arrangeBar();
    void fitMessage();
    void chooseSystemPrinter();
    void openKeyboard();
    void reply(int retour, const QString& message);
    void restorePointer();

    int kind_ = 0;
    bool boxMode_ = false;
    bool entry_ = false;
    bool pointerSet_ = false;
    ClickLabel* Text1_ = nullptr;
    QLineEdit* Text2_ = nullptr;
    QLineEdit* Text3_ = nullptr;
    QLabel* Label2_ = nullptr;
    QCheckBox* Check1_ = nullptr;
    ClickLabel* oui_ = nullptr;
    ClickLabel* Label3_ = nullptr;
    QLabel* Image1_ = nullptr;
    std::map<int, QString> tags_;  // slots 7 to 11 of kind -4
};
