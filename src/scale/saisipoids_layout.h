#pragma once
// The controls of saisipoids and where they stand. The keypad's keys are
// placed in twips as the suite places them, so that the calculator order of
// the button bar module (charge_bouton) moves them to the right rows.
class Screen;

namespace saisipoids_layout {
// Makes every control with its name, design text and place: the three value
// boxes, the keypad Label17(0..15) over its faces ifondc(0..15), the hidden
// scale controls and the three bar slots.
void build(Screen& form);
}  // namespace saisipoids_layout
