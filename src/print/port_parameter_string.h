#pragma once
// The port parameter string by which the port screens and their callers pass
// a port and its settings: "##", two digits of port, one separator (never
// looked at: "#" or "|"), then a PortSettings text, as "##03#9600,n,8,1".
// Without the "##" the whole text is a PortSettings text.
#include <QString>
#include <QStringList>

inline const QString defaultPortSettings = QStringLiteral("9600,n,8,1");

// What the lists of speed, parity, data bits and stop bits offer, in their
// order; each list also takes free text.
inline const QStringList settingsChoices[4] = {
    {"110", "300", "1200", "2400", "4800", "9600", "19200", "38400", "57600", "115200", "230400",
     "460800"},
    {"N", "E", "O", "M", "S"},
    {"5", "6", "7", "8"},
    {"1", "1.5", "2"},
};

struct PortParameter {
    int port = 0;      // 0 without "##"; otherwise the numeric value of digits 3-4
    QString settings;  // the text from position 6 on, or the whole text
};

PortParameter decodePortParameter(const QString& text);

// The four fields of a PortSettings text (speed, parity, data bits, stop
// bits), each trimmed: the text gets ",,,,,,," behind it so that a short text
// still has its commas, then each field is what stands before the next comma.
// "9600" gives "9600", "", "", "". What follows the fourth comma goes to rest
// when asked for.
QStringList settingsFields(const QString& text, QString* rest = nullptr);

// The fields trimmed and joined by ",": "9600,n,8,1", or "9600,,," when the
// three last ones are empty.
QString settingsText(const QStringList& fields);

// "##", the port formatted "00", "#", then the settings text.
QString portParameterString(int port, const QString& settings);
