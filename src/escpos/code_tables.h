#pragma once
// The character tables a printer selects with ESC t and the national
// variants of ASCII it selects with ESC R. Tables are the codecs of Qt
// (ICU), looked up by name once and kept as 256 characters.
#include <QByteArray>
#include <QString>
#include <array>

namespace escpos {

struct CodeTable {
    int number = 0;
    QString name;        // "PC437", "WPC1252", ...
    bool known = false;  // this build decodes it
    std::array<char16_t, 256> chars{};
};

// The table of ESC t n; an unknown n gives known == false and every byte
// above 127 shown as U+FFFD.
const CodeTable& codeTable(int number);
// "PC850" for 2, "table 99" for one without a name.
QString codeTableName(int number);
// The tables an installer meets on French tills, in the order of advice.
const std::array<int, 4>& commonTables();

// The character one byte prints as under a table and an international set.
char16_t printedChar(unsigned char byte, int table, int international);
// The same for a whole text.
QString printedText(const QByteArray& bytes, int table, int international);

// "France" for ESC R 1.
QString internationalName(int number);

}  // namespace escpos
