#pragma once
// The serial port object over QSerialPort. The port number is mapped to its
// device at the open (port_device.h); the settings text is kept, given to the
// port at the open and at once when the port is already open.
#include <QSerialPort>

#include "print/mscomm.h"
#include "print/serial_settings.h"

class QtMSComm : public MSComm {
  public:
    QtMSComm();
    ~QtMSComm() override;

    void setCommPort(int number) override;
    int commPort() const override { return number_; }
    void setPortOpen(bool open) override;
    bool portOpen() const override { return port_.isOpen(); }
    void setSettings(const QString& settings) override;
    QString settings() const override { return settingsText_; }
    void output(QByteArrayView bytes) override;
    void drain() override;
    void setOnReceive(std::function<void(const QByteArray&)> handler) override;

  private:
    void open();
    void close();
    void writeOut();

    QSerialPort port_;
    int number_ = 1;
    QString settingsText_ = QStringLiteral("9600,n,8,1");
    SerialSettings settings_;
    std::function<void(const QByteArray&)> onReceive_;
};
