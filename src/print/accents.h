#pragma once
// Accent translation on Windows-1252 bytes, in place; the length never changes.
#include <QByteArray>

// Serial side (envoi_serie, envoi_cuisine, envoi_re): modes 1 and 2 translate
// the 13 known characters; any other mode leaves the text alone.
void traduit_accents(QByteArray& text, int mode);
// USB side (envoi_usb): only above 0; 14-character source; 1 plain, 2 the
// international table, 3 and above nothing replaced.
void traduit_accents_usb(QByteArray& text, int mode);

// The three modes as the lists of the screens show them; the mode is the
// digit at the head of the entry.
inline const char* const accentModeEntries[] = {"0 - Accents normaux", "1 - Sans accents",
                                                "2 - Jeux Internationaux"};
