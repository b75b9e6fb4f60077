#pragma once
// The test ticket of the ticket printer and of the kitchen printer, as a pure
// composition from the fields of the screen as they stand.
#include <QStringList>

#include "print/job.h"

struct TicketFields {
    QStringList init1, init2, init3;  // 5, 6, 6 fields
    QStringList boldOn, boldOff;      // 6 fields each
    QStringList italicOn, italicOff;  // 6 fields each
    QStringList cut;                  // 5 fields
    QString margin;                   // Text111
    QString feed;                     // Text4
    QStringList samples;              // Label1(0) to Label1(4)
    bool cutWanted = false;           // Check1
};

// The expert screen's ticket (imprime_test, test_usb).
Job composeTestTicket(const TicketFields& f);
// The kitchen printer's ticket (imprime_cuisine): the headings twice, the
// second time in bold. The line feed that envoi_cuisine adds is the channel's.
Job composeKitchenTicket(const TicketFields& f);
