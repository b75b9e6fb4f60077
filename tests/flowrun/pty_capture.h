#pragma once
// A pseudo-terminal that stands for a serial port: the tool opens the slave
// side by its path, and everything it writes is captured from the master
// side by a reader thread, so the tool never blocks on a full buffer.
#include <QByteArray>
#include <QString>
#include <mutex>
#include <thread>

class PtyCapture {
  public:
    PtyCapture();  // throws std::runtime_error when no pty can be had
    ~PtyCapture();
    PtyCapture(const PtyCapture&) = delete;
    PtyCapture& operator=(const PtyCapture&) = delete;

    QString slavePath() const { return slavePath_; }
    // Everything received so far, after waiting until the line has been
    // quiet for a moment.
    QByteArray received();

  private:
    void readLoop();
    int master_ = -1;
    int slaveHold_ = -1;  // keeps the slave open so the master never hangs up
    int wake_[2] = {-1, -1};
    QString slavePath_;
    std::mutex mutex_;
    QByteArray bytes_;
    std::thread reader_;
};
