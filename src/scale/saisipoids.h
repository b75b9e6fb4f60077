#pragma once
// saisipoids, "Kalvo_Poids": the quantity of an article sold by weight, typed
// on the keypad or the keyboard, with its unit price and the running total.
// It takes the article and its price from fiche_article and prix_unitaire and
// leaves one line in chaine_travail on closing, the empty text when the user
// cancels. No scale is read here: Text1 is where a reading would be handed
// over, and the scale's hooks stay empty and uncalled.
#include "shell/screen.h"

class QLineEdit;
class QListWidget;

class saisipoids : public Screen {
    Q_OBJECT
  public:
    explicit saisipoids(Context& ctx);

    void load() override;
    void bt_prog_Click(int index) override;
    // Closed by the window system: cancelled, the empty text.
    void closeRequested() override { annule_poids(); }

    // One key of the keypad, by its index: digits, "Effacer Tout", ".", "C",
    // the sign; the others do nothing.
    void Label17_Click(int index);
    // Refuses a quantity of 0; otherwise applies the sign, leaves the result
    // in chaine_travail and closes.
    void valide_poids();
    // Leaves the empty text in chaine_travail and closes.
    void annule_poids();

    // The scale's hooks, for the day a scale is read here.
    void lance_scrute_com() {}
    void affiche_balance();
    void cache_balance();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    // Label2 is a label, not an edit box: every change goes through here, so
    // the total follows it (Label2_Change).
    void setQuantity(const QString& text);
    void Label2_Change();
    void Text1_Change();

    QLabel* Label2_;
    QLabel* Label4_;
    QLabel* Label6_;
    QLabel* Label7_;
    QLabel* Label8_;
    QLabel* Label9_;
    QLabel* Label14_;
    QLabel* Label15_;
    QLabel* Label53_;
    QLineEdit* Text1_;
    QListWidget* List1_;
    ClickLabel* Picture1_;
};
