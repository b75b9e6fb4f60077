#pragma once
// infoobulle: a small panel that shows a short text without taking the focus
// or stopping the work, animates a row of eight lamps while it stands and
// hides itself at the first tick of Timer1 or when it is clicked.
#include <QTimer>
#include <array>

#include "shell/screen.h"

class infoobulle : public Screen {
    Q_OBJECT
  public:
    explicit infoobulle(Context& ctx);
    void load() override;
    // bulle(texte, mode) of the shell.
    void bulle(const QString& texte, const QString& mode);

    // The lamps' colours, as colour numbers, for the animation and the reset.
    static constexpr std::array<int, 8> lampColours = {65535, 53503, 41215, 33023,
                                                       24800, 16576, 12448, 8320};
    static constexpr int resetColourA = 33023;
    static constexpr int resetColourB = 16576;

  protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    void setLabel1(const QString& text);
    void Label1_Change();
    void Label2_Click();
    void Timer1_Timer();
    void Timer2_Timer();
    void affiche_shh(int step);
    void setLamp(int index, int colourNumber);

    ClickLabel* Label1_ = nullptr;
    ClickLabel* Label2_ = nullptr;
    QLabel* Label4_ = nullptr;
    QLabel* tppp_ = nullptr;
    QLabel* Image1_ = nullptr;
    QWidget* Frame2_ = nullptr;
    std::array<QLabel*, 8> lamps_{};
    QTimer* Timer1_ = nullptr;
    QTimer* Timer2_ = nullptr;
    int step_ = 1;
    int direction_ = 1;
};

// bulle(texte, mode) of the shell: the run's one bubble, made at first use and
// kept in the context's bank.
void bulle(Context& ctx, const QString& texte, const QString& mode);
