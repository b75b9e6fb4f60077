#include "pty_capture.h"

#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <chrono>
#include <stdexcept>

PtyCapture::PtyCapture() {
    master_ = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (master_ < 0 || grantpt(master_) != 0 || unlockpt(master_) != 0)
        throw std::runtime_error("no pseudo-terminal");
    slavePath_ = QString::fromLocal8Bit(ptsname(master_));
    slaveHold_ = open(ptsname(master_), O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (slaveHold_ < 0) throw std::runtime_error("cannot open the pty slave");
    termios raw{};
    tcgetattr(slaveHold_, &raw);
    cfmakeraw(&raw);
    tcsetattr(slaveHold_, TCSANOW, &raw);
    if (pipe2(wake_, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    reader_ = std::thread([this] { readLoop(); });
}

PtyCapture::~PtyCapture() {
    const char stop = 'x';
    if (write(wake_[1], &stop, 1) != 1) {
    }
    if (reader_.joinable()) reader_.join();
    for (int fd : {master_, slaveHold_, wake_[0], wake_[1]})
        if (fd >= 0) close(fd);
}

void PtyCapture::readLoop() {
    pollfd fds[2] = {{master_, POLLIN, 0}, {wake_[0], POLLIN, 0}};
    char buffer[4096];
    for (;;) {
        if (poll(fds, 2, -1) < 0) continue;
        if (fds[1].revents) return;
        if (fds[0].revents & POLLIN) {
            const ssize_t n = read(master_, buffer, sizeof buffer);
            if (n > 0) {
                std::lock_guard lock(mutex_);
                bytes_.append(buffer, n);
            }
        } else if (fds[0].revents) {
            return;  // the line is gone; nothing more can come
        }
    }
}

QByteArray PtyCapture::received() {
    // The tool drains each port before it closes it; this only waits for the
    // reader thread to have taken what is already in the pty.
    qsizetype last = -1;
    for (int quiet = 0; quiet < 3;) {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        std::lock_guard lock(mutex_);
        quiet = bytes_.size() == last ? quiet + 1 : 0;
        last = bytes_.size();
    }
    std::lock_guard lock(mutex_);
    return bytes_;
}
