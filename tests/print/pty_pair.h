#pragma once
// A pseudo-terminal pair for wire tests: the slave stands for the serial
// port the program opens, the master for the printer at the far end. The
// master is read all the time by a thread of its own (a pty whose master is
// not read makes the slave's writes and drains block); the bytes are kept
// until the test takes them. The pair also holds the slave open itself, so
// that the master never sees a hang-up between two opens of the program.
//
//   PtyPair pty;                        // ok() tells whether it worked
//   pty.slavePath();                    // "/dev/pts/N"
//   pty.received(100);                  // all bytes so far, once 100 ms pass quiet
//   pty.waitFor(12, 2000);              // until at least 12 bytes, or 2 s
//   pty.slaveTermios();                 // the settings the program gave the port
//
//   WinePorts ports;                    // a temporary WINEPREFIX for this process
//   ports.link(3, pty.slavePath());     // dosdevices/com3 -> /dev/pts/N
#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QString>
#include <QTemporaryDir>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

class PtyPair {
  public:
    PtyPair() {
        master_ = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
        if (master_ < 0 || ::grantpt(master_) != 0 || ::unlockpt(master_) != 0) return;
        const char* name = ::ptsname(master_);
        if (!name) return;
        slavePath_ = QString::fromLocal8Bit(name);
        slave_ = ::open(name, O_RDWR | O_NOCTTY | O_CLOEXEC);
        if (slave_ < 0 || ::pipe2(stopPipe_, O_CLOEXEC) != 0) return;
        reader_ = std::thread([this] { readLoop(); });
    }

    ~PtyPair() {
        if (reader_.joinable()) {
            const char stop = 's';
            [[maybe_unused]] const ssize_t n = ::write(stopPipe_[1], &stop, 1);
            reader_.join();
        }
        for (int fd : {stopPipe_[0], stopPipe_[1], slave_, master_}) {
            if (fd >= 0) ::close(fd);
        }
    }

    PtyPair(const PtyPair&) = delete;
    PtyPair& operator=(const PtyPair&) = delete;

    bool ok() const { return reader_.joinable(); }
    QString slavePath() const { return slavePath_; }
    int masterFd() const { return master_; }

    // Every byte received so far, taken away, once no byte has come for
    // quietMs (bounded by a few seconds in all).
    QByteArray received(int quietMs = 100) {
        std::unique_lock lock(mutex_);
        const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(5);
        qsizetype seen = -1;
        while (seen != bytes_.size() && std::chrono::steady_clock::now() < limit) {
            seen = bytes_.size();
            arrived_.wait_for(lock, std::chrono::milliseconds(quietMs));
        }
        return std::exchange(bytes_, {});
    }

    // Waits until at least count bytes have come, or the time is over; takes
    // nothing away.
    QByteArray waitFor(qsizetype count, int timeoutMs) {
        std::unique_lock lock(mutex_);
        arrived_.wait_for(lock, std::chrono::milliseconds(timeoutMs),
                          [&] { return bytes_.size() >= count; });
        return bytes_;
    }

    // The slave's settings, read through the master (the kernel answers for
    // the slave).
    termios slaveTermios() const {
        termios t{};
        ::tcgetattr(master_, &t);
        return t;
    }

  private:
    void readLoop() {
        pollfd fds[2] = {{master_, POLLIN, 0}, {stopPipe_[0], POLLIN, 0}};
        char buffer[4096];
        for (;;) {
            if (::poll(fds, 2, -1) < 0) continue;
            if (fds[1].revents) return;
            const ssize_t n =
                (fds[0].revents & POLLIN) ? ::read(master_, buffer, sizeof buffer) : -1;
            if (n <= 0) {
                // A hang-up: wait a little on the stop pipe alone, not spinning.
                if (::poll(&fds[1], 1, 10) > 0) return;
                continue;
            }
            std::lock_guard lock(mutex_);
            bytes_.append(buffer, n);
            arrived_.notify_all();
        }
    }

    int master_ = -1;
    int slave_ = -1;
    int stopPipe_[2] = {-1, -1};
    QString slavePath_;
    std::thread reader_;
    std::mutex mutex_;
    std::condition_variable arrived_;
    QByteArray bytes_;
};

// A temporary Wine prefix for this process: WINEPREFIX points at it while the
// object lives, and link() maps a port number to a device as a till does.
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
        const QString path = linkPath(number);
        QFile::remove(path);
        return QFile::link(device, path);
    }
    QString linkPath(int number) const {
        return dir_.filePath(QStringLiteral("dosdevices/com%1").arg(number));
    }
    QString prefix() const { return dir_.path(); }

  private:
    QTemporaryDir dir_;
    QByteArray previous_;
    bool hadPrevious_;
};
