#include "virtual_port.h"

#include <fcntl.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <cstdio>

VirtualPort::~VirtualPort() {
    close();
}

QString VirtualPort::prefix() {
    return qEnvironmentVariableIsEmpty("WINEPREFIX") ? QDir::homePath() + QStringLiteral("/.wine")
                                                     : qEnvironmentVariable("WINEPREFIX");
}

bool VirtualPort::open(int port, const QString& extraLink, QString& error) {
    master_ = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK);
    if (master_ < 0 || ::grantpt(master_) != 0 || ::unlockpt(master_) != 0 || !::ptsname(master_)) {
        error = QStringLiteral("pas de pseudo-terminal : %1")
                    .arg(QString::fromLocal8Bit(strerror(errno)));
        close();
        return false;
    }
    slavePath_ = QString::fromLocal8Bit(::ptsname(master_));
    // This end keeps the line open itself, so that the master never reads a
    // hang-up between two opens of the till; raw, so that nothing is echoed
    // or changed before the till sets the line its own way.
    slave_ = ::open(::ptsname(master_), O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (slave_ < 0) {
        error = QStringLiteral("%1 : %2").arg(slavePath_, QString::fromLocal8Bit(strerror(errno)));
        close();
        return false;
    }
    termios t{};
    if (::tcgetattr(slave_, &t) == 0) {
        ::cfmakeraw(&t);
        ::tcsetattr(slave_, TCSANOW, &t);
    }
    setting_ = std::make_unique<WinePortSetting>(prefix(), port);
    if (!setting_->makePrefixIfMissing(error)) {
        close();
        return false;
    }
    const QString folder = prefix() + QStringLiteral("/dosdevices");
    if (!QDir().mkpath(folder)) {
        error = QStringLiteral("impossible de créer %1").arg(folder);
        close();
        return false;
    }
    linkPath_ = folder + QStringLiteral("/com%1").arg(port);
    if (!makeLink(linkPath_, error) || (!extraLink.isEmpty() && !makeLink(extraLink, error))) {
        close();
        return false;
    }
    if (QString why; !setting_->set(slavePath_, why))
        warning_ = QStringLiteral(
                       "registre de Wine non modifié (%1) : Com %2 ne tiendra que "
                       "jusqu'au prochain démarrage de Wine")
                       .arg(why)
                       .arg(port);
    notifier_ = std::make_unique<QSocketNotifier>(master_, QSocketNotifier::Read);
    connect(notifier_.get(), &QSocketNotifier::activated, this, &VirtualPort::readAvailable);
    return true;
}

bool VirtualPort::makeLink(const QString& path, QString& error) {
    const QFileInfo info(path);
    QDir().mkpath(info.absolutePath());
    Link link{path, {}};
    if (info.isSymLink()) {
        link.previousTarget = info.symLinkTarget();
        QFile::remove(path);
    } else if (info.exists()) {
        error = QStringLiteral("%1 existe et n'est pas un lien : laissé tel quel").arg(path);
        return false;
    }
    if (!QFile::link(slavePath_, path)) {
        error = QStringLiteral("impossible de créer le lien %1").arg(path);
        return false;
    }
    links_.push_back(link);
    return true;
}

void VirtualPort::readAvailable() {
    char buffer[4096];
    for (;;) {
        const ssize_t n = ::read(master_, buffer, sizeof buffer);
        if (n > 0) {
            emit received(QByteArray(buffer, n));
            continue;
        }
        if (n < 0 && errno == EINTR) continue;
        return;  // EAGAIN: all read
    }
}

void VirtualPort::close() {
    notifier_.reset();
    for (const Link& link : links_) {
        // Only our own link is taken away, and what stood there comes back.
        if (QFileInfo(link.path).symLinkTarget() == QFileInfo(slavePath_).absoluteFilePath())
            QFile::remove(link.path);
        if (!link.previousTarget.isEmpty() && !QFileInfo(link.path).isSymLink())
            QFile::link(link.previousTarget, link.path);
    }
    links_.clear();
    // After the links: a prefix made for the port goes with its last link.
    if (setting_) {
        if (QString why; !setting_->restore(why))
            std::fprintf(stderr, "kalvo-vprinter : registre de Wine non rétabli : %s\n",
                         qPrintable(why));
        setting_.reset();
    }
    for (int* fd : {&slave_, &master_})
        if (*fd >= 0) {
            ::close(*fd);
            *fd = -1;
        }
}
