#include <termios.h>

#include <QDir>
#include <QFileInfo>
#include <cerrno>

#include "print/port_device.h"
#include "store/failure.h"

QString portDevice(int number) {
    QString prefix = qEnvironmentVariable("WINEPREFIX");
    if (prefix.isEmpty()) prefix = QDir::homePath() + QStringLiteral("/.wine");
    const QFileInfo link(prefix + QStringLiteral("/dosdevices/com%1").arg(number));
    if (link.isSymLink() || link.exists()) {
        // The device itself, so that its lock is the one every program takes;
        // a link that leads nowhere stays as it is and fails at the open.
        const QString target = link.canonicalFilePath();
        return target.isEmpty() ? link.absoluteFilePath() : target;
    }
    return QStringLiteral("/dev/ttyS%1").arg(number - 1);
}

void drainDevice(qintptr handle) {
    while (::tcdrain(int(handle)) != 0) {
        if (errno != EINTR) throw Failure(QStringLiteral("Erreur de port"));
    }
}
