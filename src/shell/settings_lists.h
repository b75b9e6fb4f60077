#pragma once
// The four lists of a serial port's settings (speed, parity, data bits, stop
// bits) as the port screens and the drawer screen have them: each offers the
// usual choices and takes any text, kept exactly as typed ("n" stays "n").
#include <QString>
#include <array>

class QComboBox;

using SettingsLists = std::array<QComboBox*, 4>;

// Makes a list take free text as it stands: no completion, no new entry.
void makeFreeText(QComboBox& list);
// Empties the lists and fills them with their choices.
void fillSettingsLists(const SettingsLists& lists);
// The fields of a PortSettings text into the lists, by the field rule; what
// the rule leaves of the text goes to rest when asked for.
void showSettings(const SettingsLists& lists, const QString& text, QString* rest = nullptr);
// The four texts trimmed and joined by ",".
QString listedSettings(const SettingsLists& lists);
