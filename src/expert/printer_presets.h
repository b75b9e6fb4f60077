#pragma once
// The printer models that a button fills a printer screen with. One row a
// model; a value is the text of a box, three digits with leading zeros, and a
// group of boxes is written as its values separated by blanks. An empty group
// leaves its boxes as they stand (blank after efface_zones).
#include <QString>
#include <vector>

class PrinterForm;

struct PrinterPreset {
    enum class Tick { Keep, Checked };
    const char* button;     // "Command3", "Command5(0)", ...
    const char* init1;      // Text2(0) and Text2(1)
    const char* init2;      // Text8(0) to Text8(2)
    const char* boldOn;     // Text8(10) to Text8(12)
    const char* boldOff;    // Text8(20) to Text8(22)
    const char* italicOn;   // Text8(30) to Text8(32)
    const char* italicOff;  // Text8(40) to Text8(42)
    const char* cut;        // Text2(5) to Text2(7)
    const char* drawer;     // Text1(0) to Text1(4); the other places get one blank
    const char* settings;   // Text6(0) to Text6(3)
    const char* margin;     // Text111
    const char* feed;       // Text4
    Tick cutterTest;        // Check1
    int usb;                // Check2
    const char* usbFamily;  // Label13; nullptr leaves it as it stands
};

const std::vector<PrinterPreset>& printerPresets();
// The row of a button; throws std::out_of_range for a button with no row.
const PrinterPreset& printerPreset(const QString& button);

// The assignments of a row. A screen without a drawer or without USB passes
// over those columns. It does not clear the screen first: the expert screen
// runs efface_zones before, the kitchen screen does not.
void applyPreset(PrinterForm& form, const PrinterPreset& preset);
