#pragma once
// What an installer needs to choose the tool's accent mode: the accented
// lines of a ticket as each common code table prints them, and which of the
// three modes prints "é è ê à ç" right with the table the ticket selected.
#include <QString>

#include "escpos/document.h"

struct AccentAdvice {
    int table = 0;          // the table the ticket's text was printed with
    bool accented = false;  // the ticket has lines beyond ASCII
    QString lines;          // the accented lines under each table
    QString modes;          // each mode with what it prints
    QString conclusion;     // the mode(s) to choose, or what to change

    QString text() const;
};

AccentAdvice adviseAccents(const escpos::Sheet& sheet);
