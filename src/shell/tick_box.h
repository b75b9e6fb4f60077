#pragma once
// A tick box holds 0, 1 or 2 (grey), as the suite's tick boxes do; a record
// gives it a number and gets that number back.
class QCheckBox;

// 0, 1 or 2.
int tickValue(const QCheckBox& box);
// The number as an integer of the suite (halves to even); any value but 0, 1
// and 2 is refused with "Valeur de propriété non valide" (a Failure).
void setTickValue(QCheckBox& box, double value);
