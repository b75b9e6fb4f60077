#include "print/qt_mscomm.h"

#include <QDeadlineTimer>

#include "print/port_device.h"
#include "store/failure.h"

QtMSComm::QtMSComm() {
    QObject::connect(&port_, &QSerialPort::readyRead, [this] {
        const QByteArray received = port_.readAll();
        if (onReceive_) onReceive_(received);
    });
}

void QtMSComm::setOnReceive(std::function<void(const QByteArray&)> handler) {
    onReceive_ = std::move(handler);
}

QtMSComm::~QtMSComm() {
    if (port_.isOpen()) port_.close();
}

void QtMSComm::setCommPort(int number) {
    if (port_.isOpen()) throw Failure(QStringLiteral("Port déjà ouvert"));
    if (number < 1) throw Failure(QStringLiteral("Numéro de port incorrect"));
    number_ = number;
}

void QtMSComm::setPortOpen(bool open) {
    if (open) {
        this->open();
    } else if (port_.isOpen()) {
        close();
    }
}

void QtMSComm::open() {
    if (port_.isOpen()) throw Failure(QStringLiteral("Port déjà ouvert"));
    port_.setPortName(portDevice(number_));
    // A missing device, or one that another program holds (Qt's lock).
    if (!port_.open(QIODevice::ReadWrite)) {
        throw Failure(QStringLiteral("Ouverture du port impossible : %1").arg(port_.errorString()));
    }
    try {
        applySerialSettings(port_, settings_);
    } catch (const Failure&) {
        port_.close();
        throw;
    }
}

// Qt's own buffer to the driver, within a time the bytes may take on the wire.
void QtMSComm::writeOut() {
    const qint64 wireMs = port_.bytesToWrite() * 10 * 1000 / qMax(1, port_.baudRate());
    const QDeadlineTimer deadline(1000 + 2 * wireMs);
    while (port_.bytesToWrite() > 0 && !deadline.hasExpired()) {
        if (!port_.waitForBytesWritten(int(qMax<qint64>(1, deadline.remainingTime())))) break;
    }
}

void QtMSComm::drain() {
    if (!port_.isOpen()) throw Failure(QStringLiteral("Port fermé"));
    writeOut();
    drainDevice(port_.handle());
}

// Every byte written before the close reaches the wire: Qt's buffer first,
// then the driver's, then the close itself.
void QtMSComm::close() {
    writeOut();
    try {
        drainDevice(port_.handle());
    } catch (const Failure&) {
        // A device that refuses to drain is closed all the same.
    }
    port_.close();
}

void QtMSComm::setSettings(const QString& settings) {
    const SerialSettings parsed = parseSerialSettings(settings);
    if (port_.isOpen()) applySerialSettings(port_, parsed);
    settings_ = parsed;
    settingsText_ = settings;
}

void QtMSComm::output(QByteArrayView bytes) {
    if (!port_.isOpen()) throw Failure(QStringLiteral("Port fermé"));
    if (port_.write(bytes.data(), bytes.size()) != bytes.size()) {
        throw Failure(QStringLiteral("Écriture sur le port impossible"));
    }
    // Hand the bytes to the driver at once, as the suite's port does; what the
    // driver cannot take yet goes out with the events or at the close.
    port_.flush();
}
