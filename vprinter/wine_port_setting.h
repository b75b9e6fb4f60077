#pragma once
// The value COMn of HKEY_LOCAL_MACHINE\Software\Wine\Ports in one Wine
// prefix. Each time Wine starts it remakes dosdevices/comN from that value,
// or else from the serial devices it finds (com1 -> /dev/ttyS0), so a link
// alone is lost at Wine's next start; the value keeps it. What stood there
// before is put back by restore().
#include <QByteArray>
#include <QString>

class WinePortSetting {
  public:
    WinePortSetting(const QString& prefix, int port);

    // A prefix that does not exist yet is made as Wine makes one (the c: and
    // z: links, drive_c, a registry file), so that Wine, started later, can
    // start in it and finds the value there; restore() takes it away again
    // when Wine has not started in it meanwhile.
    bool makePrefixIfMissing(QString& error);

    // Sets COMn to device. A prefix folder with no registry file is left
    // alone: Wine is not started for it. False with a warning when the value
    // could not be set (the link still serves until Wine's next start).
    bool set(const QString& device, QString& warning);
    // Puts back what stood there, if the value is still ours.
    bool restore(QString& warning);

    // Whether a wineserver runs for the prefix (it holds the registry then).
    static bool serverRuns(const QString& prefix);

  private:
    struct Value {
        bool present = false;
        QString text;     // the string, for `wine reg`
        QByteArray line;  // the line of system.reg as it was, kept verbatim
    };
    bool apply(const Value& wanted, const QString& expected, QString& warning);
    bool applyToFile(const Value& wanted, const QString& expected, QString& warning);
    bool applyThroughWine(const Value& wanted, const QString& expected, QString& warning);
    bool queryThroughWine(Value& value, QString& warning) const;

    QString prefix_, name_;  // name_: COMn
    QString device_;         // empty when nothing was set
    Value previous_;
    bool madePrefix_ = false;
};
