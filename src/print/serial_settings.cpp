#include "print/serial_settings.h"

#include <QStringList>

#include "store/failure.h"

namespace {

[[noreturn]] void refuse(const QString& text) {
    throw Failure(QStringLiteral("Paramètres de port incorrects : %1").arg(text));
}

bool allDigits(const QString& text) {
    if (text.isEmpty()) return false;
    for (QChar c : text) {
        if (c < u'0' || c > u'9') return false;
    }
    return true;
}

}  // namespace

SerialSettings parseSerialSettings(const QString& text) {
    const QStringList parts = text.split(u',');
    if (parts.size() != 4) refuse(text);
    SerialSettings s;

    bool ok = false;
    const qint64 speed = parts[0].toLongLong(&ok);
    if (!allDigits(parts[0]) || !ok || speed <= 0 || speed > 0x7fffffff) refuse(text);
    s.speed = qint32(speed);

    const QString parity = parts[1].toLower();
    if (parity == u"n")
        s.parity = QSerialPort::NoParity;
    else if (parity == u"e")
        s.parity = QSerialPort::EvenParity;
    else if (parity == u"o")
        s.parity = QSerialPort::OddParity;
    else if (parity == u"m")
        s.parity = QSerialPort::MarkParity;
    else if (parity == u"s")
        s.parity = QSerialPort::SpaceParity;
    else
        refuse(text);

    if (parts[2].size() != 1 || parts[2][0] < u'4' || parts[2][0] > u'8') refuse(text);
    s.dataBits = parts[2][0].unicode() - u'0';

    if (parts[3] == u"1")
        s.stopBits = QSerialPort::OneStop;
    else if (parts[3] == u"1.5")
        s.stopBits = QSerialPort::OneAndHalfStop;
    else if (parts[3] == u"2")
        s.stopBits = QSerialPort::TwoStop;
    else
        refuse(text);
    return s;
}

void applySerialSettings(QSerialPort& port, const SerialSettings& s) {
    // Qt knows data bits from 5 to 8 only; 4 is refused like any setting
    // the device does not take.
    const bool ok = s.dataBits >= 5 && port.setBaudRate(s.speed) && port.setParity(s.parity) &&
                    port.setDataBits(QSerialPort::DataBits(s.dataBits)) &&
                    port.setStopBits(s.stopBits) && port.setFlowControl(QSerialPort::NoFlowControl);
    if (!ok) throw Failure(QStringLiteral("Paramètres refusés par le port"));
}
