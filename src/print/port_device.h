#pragma once
// Where a port number of the suite (1 to 12, "Com 1" to "Com 12") lies on
// this system. On Windows it is COMn. On Linux it is the device that the link
// comN of Wine's dosdevices folder names ($WINEPREFIX/dosdevices, or
// ~/.wine/dosdevices), which is where a Linux till maps its Windows ports;
// without such a link, /dev/ttyS(n-1).
#include <QString>

QString portDevice(int number);

// Waits until every byte handed to the device has left it (the driver's own
// buffer included). Throws Failure when the device refuses.
void drainDevice(qintptr handle);
