#pragma once
// The fields of the expert screen after the standard serial preset, margin 4,
// feed 5, cut checked: the example ticket of the wire tests and benchmark.
#include <QString>

#include "print/test_ticket.h"

inline TicketFields standardTicketFields() {
    TicketFields f;
    f.init1 = {"027", "064", "", "", ""};
    f.init2 = {"027", "116", "016", "", "", ""};
    f.init3 = {"", "", "", "", "", ""};
    f.boldOn = {"027", "069", "001", "", "", ""};
    f.boldOff = {"027", "069", "000", "", "", ""};
    f.italicOn = {"027", "045", "049", "", "", ""};
    f.italicOff = {"027", "045", "048", "", "", ""};
    f.cut = {"029", "086", "048", "", ""};
    f.margin = "4";
    f.feed = "5";
    f.samples = {"Test Imprimante Ticket", "Logiciel de Caisse", "Texte en Gras",
                 "Texte en Italique", QString::fromUtf8("Accents :  é è ê à ç")};
    f.cutWanted = true;
    return f;
}

// The kitchen screen's own captions differ by one letter.
inline TicketFields standardKitchenFields() {
    TicketFields f = standardTicketFields();
    f.samples[1] = "Logiciel de caisse";
    return f;
}
