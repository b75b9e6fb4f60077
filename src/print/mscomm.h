#pragma once
// The serial port object the screens use, with the four operations of the
// suite's port component. Each operation throws Failure as the component
// would fail: opening a missing or busy port, opening a port already open,
// settings the port refuses, output on a closed port.
#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <functional>

class MSComm {
  public:
    virtual ~MSComm() = default;
    virtual void setCommPort(int number) = 0;  // 1 to 12; fails while the port is open
    virtual int commPort() const = 0;
    virtual void setPortOpen(bool open) = 0;  // closing drains every byte to the wire first
    virtual bool portOpen() const = 0;
    virtual void setSettings(const QString& settings) = 0;  // "9600,n,8,1"
    virtual QString settings() const = 0;
    virtual void output(QByteArrayView bytes) = 0;
    // Returns once every byte output so far has left for the wire; fails on a
    // closed port. The port stays open.
    virtual void drain() = 0;
    // The port's one event: data received, the whole input buffer read at once.
    virtual void setOnReceive(std::function<void(const QByteArray&)> handler) { (void)handler; }
};
