#pragma once
// A pseudo-terminal pair that stands for a serial port: the program opens the
// slave by its path, the master is the printer at the far end. A thread reads
// the master all the time (a pty whose master is not read makes the slave's
// writes and drains block) and keeps the bytes until the test takes them.
// The pair holds the slave open itself, so the master never sees a hang-up
// between two opens of the program. Header only, for the benchmarks too.
#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

#include <QByteArray>
#include <QString>
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
        for (int fd : {stopPipe_[0], stopPipe_[1], slave_, master_})
            if (fd >= 0) ::close(fd);
    }
    PtyPair(const PtyPair&) = delete;
    PtyPair& operator=(const PtyPair&) = delete;

    bool ok() const { return reader_.joinable(); }
    QString slavePath() const { return slavePath_; }
    int masterFd() const { return master_; }

    // Every byte received so far, taken away, once none has come for quietMs
    // (a few seconds at most in all).
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
    // The settings the program gave the slave (the kernel answers through
    // the master).
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
