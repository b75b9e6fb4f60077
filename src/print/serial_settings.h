#pragma once
// The settings text of a serial port, "speed,parity,data,stop" as
// "9600,n,8,1", read strictly: four parts, none empty, no blanks; a speed
// that is a positive whole number; parity n, e, o, m or s in either case;
// data bits 4 to 8; stop bits 1, 1.5 or 2. Anything else throws Failure.
#include <QSerialPort>
#include <QString>

struct SerialSettings {
    qint32 speed = 9600;
    QSerialPort::Parity parity = QSerialPort::NoParity;
    int dataBits = 8;  // 4 to 8: the port itself may refuse some
    QSerialPort::StopBits stopBits = QSerialPort::OneStop;
};

SerialSettings parseSerialSettings(const QString& text);

// Gives the settings to an open port; throws Failure when it refuses any.
void applySerialSettings(QSerialPort& port, const SerialSettings& settings);
