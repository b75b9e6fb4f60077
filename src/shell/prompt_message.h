#pragma once
// How the prompt dialog reads its call: the prefixes of msg_dialogue ("#COU#",
// "#POL#", "#MKM#", "#A#", "ON|", "*", "}"), the "message|value" split and
// the kind in retour_dialogue with its flags. Texts come from callers and
// from the sales program's conventions, so any text and any kind is read.
#include <QString>
#include <optional>
#include <vector>

struct PromptMessage {
    std::optional<int> colour;    // "#COU#": a number of the 16-colour palette
    std::optional<int> fontSize;  // "#POL#"
    QString tail;                 // what followed "#MKM#"
    bool tickBox = false;         // the tail is not blank: the tick box shows
    bool leftAligned = false;     // "#A#"
    bool yesNo = false;           // "ON|"
    bool search = false;          // "*": the slot "Recherc."
    bool choosePrinter = false;   // "}": the slot "Sel.Impr"
    bool boxMode = false;         // kind -654
    bool password = false;        // flag 100000
    bool entry = false;           // flag 128: the entry box and "Clavier"
    int kind = 0;                 // the kind once the flags are off
    QString value;                // the entry box's first text (Text3 in box mode)
    QString text;                 // the message that shows, and msg_dialogue afterwards
    struct CallerSlot {
        int slot;
        QString definition;  // "007:124:Imprimer"
        QString tag;         // what the slot hands back
    };
    std::vector<CallerSlot> callerSlots;  // kind -4, from the tail
};

PromptMessage readPromptMessage(QString msg, int kind);
