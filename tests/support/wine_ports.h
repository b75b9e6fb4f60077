#pragma once
// A private Wine prefix for this process: WINEPREFIX points at it while the
// object lives, and link() maps a port number to a device as a Linux till
// does (dosdevices/comN). Header only, for the benchmarks too.
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

class WinePorts {
  public:
    WinePorts()
        : previous_(qgetenv("WINEPREFIX")), hadPrevious_(qEnvironmentVariableIsSet("WINEPREFIX")) {
        QDir(dir_.path()).mkpath(QStringLiteral("dosdevices"));
        qputenv("WINEPREFIX", QFile::encodeName(dir_.path()));
    }
    ~WinePorts() {
        if (hadPrevious_)
            qputenv("WINEPREFIX", previous_);
        else
            qunsetenv("WINEPREFIX");
    }
    WinePorts(const WinePorts&) = delete;
    WinePorts& operator=(const WinePorts&) = delete;

    bool link(int number, const QString& device) {
        QFile::remove(linkPath(number));
        return QFile::link(device, linkPath(number));
    }
    QString linkPath(int number) const {
        return dir_.filePath(QStringLiteral("dosdevices/com%1").arg(number));
    }
    QString prefix() const { return dir_.path(); }
    // Removes the folder now (for a process that leaves without destructors).
    void remove() { dir_.remove(); }

  private:
    QTemporaryDir dir_;
    QByteArray previous_;
    bool hadPrevious_;
};
