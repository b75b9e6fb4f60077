#pragma once
// The printer's end of a serial line: a pseudo-terminal whose other end Wine
// names comN, so that the till's software opens "Com N" and writes to us.
// The far end sets the line (speed, parity...) as it would on a real port;
// this end reads raw bytes whatever it sets. Wine remakes comN each time it
// starts, from the value COMn of its registry's Software\Wine\Ports, so that
// value is set to the pseudo-terminal too. The link and the value that stood
// there before are put back when the port closes.
#include <QObject>
#include <QSocketNotifier>
#include <memory>

#include "wine_port_setting.h"

class VirtualPort : public QObject {
    Q_OBJECT
  public:
    ~VirtualPort() override;

    // Makes the pseudo-terminal and the link(s); false with the reason.
    bool open(int port, const QString& extraLink, QString& error);
    void close();

    // Reads what has arrived and not been read yet (at the end of a run).
    void drain() { readAvailable(); }

    QString devicePath() const { return slavePath_; }
    QString linkPath() const { return linkPath_; }
    // Why Wine's registry could not be set (the link serves until Wine's next
    // start), or empty.
    QString warning() const { return warning_; }

    // $WINEPREFIX, or ~/.wine.
    static QString prefix();

  signals:
    void received(const QByteArray& bytes);

  private:
    void readAvailable();
    bool makeLink(const QString& path, QString& error);

    int master_ = -1, slave_ = -1;
    QString slavePath_, linkPath_, warning_;
    std::unique_ptr<WinePortSetting> setting_;
    std::unique_ptr<QSocketNotifier> notifier_;
    struct Link {
        QString path;
        QString previousTarget;  // empty when there was none
    };
    std::vector<Link> links_;
};
