#pragma once
// The relay pulse of a cash drawer on a serial port of its own: the opening
// string closes the relay's contact (the drawer pops open), the closing string
// releases it after the wait. The pulse is first composed from the saved
// records alone, without touching any port, then fired.
#include <QByteArray>
#include <QString>
#include <chrono>
#include <functional>

#include "store/records.h"

class MSComm;
class Platform;

struct DrawerPulse {
    int port = 0;
    std::chrono::milliseconds wait{0};
    QByteArray opening;
    QByteArray closing;
    QString settings;
};

// Records 190 to 194 as they are saved, with no range rule: the port is the
// number in positions 3-4 of record 190, the wait record 191 in milliseconds
// (taken as a 32-bit float of seconds, as the sales program does; none below
// zero). Each group of three characters of records 192 and 193 that is not
// three blanks is one byte. Throws Failure, before any byte is sent, when a
// group is not a whole number or not a byte, or the wait is beyond any count.
using RecordReader = std::function<QByteArray(const RecordRef&)>;
DrawerPulse composeDrawerPulse(const RecordReader& record);

// Fires the pulse: port number, open, settings, the opening string, drained
// to the wire, the wait, the closing string, the close. Throws Failure at the
// first step that fails and leaves the port as it stands.
void fireDrawerPulse(MSComm& port, const DrawerPulse& pulse, Platform& platform);
