#pragma once
// The programmable button bar and the image theme.
#include <QString>

class Context;
class Screen;

// "003:124:Valider": slot 3, image 124, caption "Valider". The last call for a
// slot wins. A slot the screen has not prepared is a programming error.
void cree_bouton(Screen& form, const QString& definition);
// Loads the theme from records 1999, 2042 to 2047 and 3008 of file 20 into the
// banks and couleur_theme; every failing step is skipped.
void charge_theme(Context& ctx);
// Dresses the keypad of the weight screen: the key faces ifondc(i) and their
// labels Label17(i), found by name; with switch 10 at 1 the rows 1-2-3 and
// 7-8-9 change places.
void charge_bouton(Screen& form);
