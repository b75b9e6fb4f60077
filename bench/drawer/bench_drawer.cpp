// The drawer's relay pulse, fired on a pseudo-terminal pair at 100, 500 and
// 2000 ms, measured at the far end: the gap between the last byte of the
// opening string and the first byte of the closing string, against the
// setting, and the processor time the process spends during the wait.
// Side by side in one run:
//   the tool: tirrro's own test pulse (records saved, read back, fired on a
//     QSerialPort through the real platform's pause);
//   the floor: the same bytes with plain system calls and clock_nanosleep,
//     pulse for pulse in turn with the tool's;
//   a spinning wait on the time of day, as a tight loop would do it (a few
//     pulses at the shortest setting only, it keeps a core busy).
//
//   bench_drawer [pulses]     (20 at each setting by default)
#include <fcntl.h>
#include <poll.h>
#include <pthread.h>
#include <sched.h>
#include <stdlib.h>
#include <sys/time.h>
#include <termios.h>
#include <time.h>
#include <unistd.h>

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QTemporaryDir>
#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <cstdio>
#include <mutex>
#include <thread>
#include <vector>

#include "app/app_platform.h"
#include "drawer/tirrro.h"
#include "shell/context.h"
#include "support/wine_ports.h"

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr int portNumber = 3;
const QByteArray opening("\x1bp\x00", 3);  // 27 112 0
const QByteArray closing("\x1bp\x01", 3);  // 27 112 1

double cpuSeconds() {
    timespec t{};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
    return double(t.tv_sec) + double(t.tv_nsec) / 1e9;
}

// The relay at the far end of the pair: every chunk read from the master is
// stamped with the monotonic time it came.
class FarEnd {
  public:
    FarEnd() {
        master_ = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
        if (master_ < 0 || ::grantpt(master_) != 0 || ::unlockpt(master_) != 0) return;
        slavePath = QString::fromLocal8Bit(::ptsname(master_));
        // Held open here too, so the master never sees a hang-up between pulses.
        slave_ = ::open(::ptsname(master_), O_RDWR | O_NOCTTY | O_CLOEXEC);
        if (slave_ < 0 || ::pipe2(stop_, O_CLOEXEC) != 0) return;
        reader_ = std::thread([this] { readLoop(); });
    }
    ~FarEnd() {
        if (reader_.joinable()) {
            [[maybe_unused]] const ssize_t n = ::write(stop_[1], "s", 1);
            reader_.join();
        }
        for (int fd : {stop_[0], stop_[1], slave_, master_})
            if (fd >= 0) ::close(fd);
    }
    bool ok() const { return reader_.joinable(); }
    void clear() {
        std::lock_guard lock(mutex_);
        chunks_.clear();
        bytes_ = 0;
    }
    // The gap in ms between the byte at index split - 1 and the byte at split,
    // once `count` bytes have come; a negative value when they did not.
    double gapMs(int split, int count, int timeoutMs) {
        std::unique_lock lock(mutex_);
        if (!arrived_.wait_for(lock, milliseconds(timeoutMs), [&] { return bytes_ >= count; }))
            return -1;
        Clock::time_point before{}, after{};
        int seen = 0;
        for (const auto& [at, n] : chunks_) {
            if (seen <= split - 1 && split - 1 < seen + n) before = at;
            if (seen <= split && split < seen + n) after = at;
            seen += n;
        }
        return std::chrono::duration<double, std::milli>(after - before).count();
    }
    QString slavePath;
    std::atomic<bool> realTime{false};

  private:
    void readLoop() {
        // The relay reacts in hardware time: where the system allows it, the
        // far end reads at a real-time priority, so that its stamps do not
        // wait for the other programs of the machine. The sender keeps the
        // ordinary priority the tool has.
        sched_param priority{};
        priority.sched_priority = ::sched_get_priority_min(SCHED_FIFO);
        realTime = ::pthread_setschedparam(::pthread_self(), SCHED_FIFO, &priority) == 0;
        pollfd fds[2] = {{master_, POLLIN, 0}, {stop_[0], POLLIN, 0}};
        char buffer[256];
        for (;;) {
            if (::poll(fds, 2, -1) < 0) continue;
            if (fds[1].revents) return;
            const ssize_t n = ::read(master_, buffer, sizeof buffer);
            const Clock::time_point at = Clock::now();
            if (n <= 0) continue;
            std::lock_guard lock(mutex_);
            chunks_.emplace_back(at, int(n));
            bytes_ += int(n);
            arrived_.notify_all();
        }
    }
    int master_ = -1, slave_ = -1, stop_[2] = {-1, -1};
    std::thread reader_;
    std::mutex mutex_;
    std::condition_variable arrived_;
    std::vector<std::pair<Clock::time_point, int>> chunks_;
    int bytes_ = 0;
};

struct Figures {
    std::vector<double> gaps;
    double waitCpu = 0;   // processor seconds spent during the waits
    double waitWall = 0;  // seconds the waits lasted
    int failed = 0;

    double worstError(int ms) const {
        double worst = 0;
        for (double g : gaps) worst = std::max(worst, std::abs(g - ms));
        return gaps.empty() ? -1 : worst;
    }
    double medianError(int ms) const {
        std::vector<double> errors;
        for (double g : gaps) errors.push_back(std::abs(g - ms));
        if (errors.empty()) return -1;
        std::nth_element(errors.begin(), errors.begin() + errors.size() / 2, errors.end());
        return errors[errors.size() / 2];
    }
    double mean() const {
        double sum = 0;
        for (double g : gaps) sum += g;
        return gaps.empty() ? -1 : sum / double(gaps.size());
    }
    double share() const { return waitWall > 0 ? 100 * waitCpu / waitWall : -1; }
};

// The real platform, whose pause also counts what it costs.
class MeasuredPlatform : public AppPlatform {
  public:
    void pause(milliseconds length) override {
        const double cpu = cpuSeconds();
        const Clock::time_point start = Clock::now();
        AppPlatform::pause(length);
        figures->waitWall += std::chrono::duration<double>(Clock::now() - start).count();
        figures->waitCpu += cpuSeconds() - cpu;
    }
    Figures* figures = nullptr;
};

// No user: a failure of the pulse is counted, nothing is asked.
class NoUser : public Interaction {
  public:
    void showDialog() override {}
    void messageBox(const QString& text) override {
        std::fprintf(stderr, "message: %s\n", qPrintable(text));
        ++failures;
    }
    void bulle(const QString&, const QString&) override {}
    bool showScreen(const QString&, bool) override { return false; }
    void letEventsRun() override { QCoreApplication::processEvents(); }
    [[noreturn]] void endProgram() override { std::exit(1); }
    [[noreturn]] void fatal(const QString& what) override {
        std::fprintf(stderr, "fatal: %s\n", qPrintable(what));
        std::exit(1);
    }
    int failures = 0;
};

// One test pulse of the screen, as "Tiroir" fires it after its save.
void toolPulse(tirrro& screen, NoUser& user, FarEnd& far, Figures& f) {
    far.clear();
    const int failuresBefore = user.failures;
    screen.tiroir_indep();
    const double gap = far.gapMs(3, 6, 1000);
    if (gap < 0 || user.failures != failuresBefore)
        ++f.failed;
    else
        f.gaps.push_back(gap);
}

// The same pulse with plain system calls; `spin` waits in a loop on the time
// of day instead of sleeping.
void plainPulse(const QByteArray& device, FarEnd& far, int ms, bool spin, Figures& f) {
    far.clear();
    const int fd = ::open(device.constData(), O_RDWR | O_NOCTTY);
    termios t{};
    if (fd < 0 || ::tcgetattr(fd, &t) != 0) {
        ++f.failed;
        return;
    }
    ::cfmakeraw(&t);
    ::cfsetspeed(&t, B9600);
    t.c_cflag |= CLOCAL | CREAD;
    ::tcsetattr(fd, TCSANOW, &t);
    bool written = ::write(fd, opening.constData(), 3) == 3;
    ::tcdrain(fd);
    const double cpu = cpuSeconds();
    const Clock::time_point start = Clock::now();
    if (spin) {
        timeval now{};
        ::gettimeofday(&now, nullptr);
        const double target = double(now.tv_sec) + double(now.tv_usec) / 1e6 + ms / 1000.0;
        do ::gettimeofday(&now, nullptr);
        while (double(now.tv_sec) + double(now.tv_usec) / 1e6 < target);
    } else {
        const timespec wait{ms / 1000, (ms % 1000) * 1000000L};
        while (::clock_nanosleep(CLOCK_MONOTONIC, 0, &wait, nullptr) == EINTR) {
        }
    }
    f.waitWall += std::chrono::duration<double>(Clock::now() - start).count();
    f.waitCpu += cpuSeconds() - cpu;
    written = written && ::write(fd, closing.constData(), 3) == 3;
    ::tcdrain(fd);
    ::close(fd);
    const double gap = far.gapMs(3, 6, 1000);
    if (!written || gap < 0)
        ++f.failed;
    else
        f.gaps.push_back(gap);
}

QByteArray loadAverage() {
    QFile file(QStringLiteral("/proc/loadavg"));
    return file.open(QIODevice::ReadOnly) ? file.readAll().left(14).trimmed() : QByteArray("?");
}

void print(const char* path, int ms, const Figures& f) {
    std::printf("%6d ms  %-28s %4zu %10.3f %10.3f %10.3f %9.2f %%%s\n", ms, path, f.gaps.size(),
                f.mean(), f.medianError(ms), f.worstError(ms), f.share(),
                f.failed ? "  FAILED PULSES" : "");
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    const int pulses = argc > 1 ? std::max(1, std::atoi(argv[1])) : 20;
    FarEnd far;
    WinePorts ports;
    QTemporaryDir data;
    if (!far.ok() || !ports.link(portNumber, far.slavePath) || !data.isValid()) {
        std::fprintf(stderr, "no pseudo-terminal pair or no scratch folder\n");
        return 1;
    }
    QDir::setCurrent(data.path());

    MeasuredPlatform platform;
    NoUser user;
    Context ctx(platform, user);
    tirrro screen(ctx);
    screen.load();
    screen.Combo10->setCurrentIndex(portNumber - 1);
    const char* const codes[] = {"27", "112", "0"};
    for (int i = 0; i < 3; ++i) {
        screen.Text1.at(i)->setText(QString::fromLatin1(codes[i]));
        screen.Text1.at(10 + i)->setText(QString::fromLatin1(i == 2 ? "1" : codes[i]));
    }

    std::printf("drawer pulse 27 112 0 / 27 112 1 on a pseudo-terminal pair, %d pulses a setting\n",
                pulses);
    std::printf("far end read at %s priority; load average %s\n",
                far.realTime ? "a real-time" : "the ordinary", loadAverage().constData());
    std::printf("%9s  %-28s %4s %10s %10s %10s %11s\n", "setting", "path", "n", "mean gap",
                "median err", "worst err", "cpu/wait");
    const QByteArray device = QFile::encodeName(far.slavePath);
    double worstError = 0, worstShare = 0;
    bool complete = true;
    // The tool's pulses and the floor's take turns, so that both meet the
    // same load of the machine.
    for (int ms : {100, 500, 2000}) {
        Figures tool, floor;
        platform.figures = &tool;
        screen.Text11->setText(QString::number(ms));
        screen.sauve_pp();
        for (int i = 0; i < pulses; ++i) {
            toolPulse(screen, user, far, tool);
            plainPulse(device, far, ms, false, floor);
        }
        print("tool (tirrro, QSerialPort)", ms, tool);
        print("floor (clock_nanosleep)", ms, floor);
        worstError = std::max(worstError, tool.worstError(ms));
        worstShare = std::max(worstShare, tool.share());
        complete = complete && !tool.failed && !floor.failed;
    }
    Figures spin;
    for (int i = 0; i < std::max(1, pulses / 4); ++i) plainPulse(device, far, 100, true, spin);
    print("spinning on the time of day", 100, spin);
    std::printf(
        "tool: worst gap error %.3f ms (target 2), processor during the wait %.2f %% of "
        "a core (target under 5)\n",
        worstError, worstShare);
    const bool met = complete && worstError <= 2 && worstShare < 5;
    std::printf("%s\n", met ? "targets met" : "TARGETS MISSED");
    return met ? 0 : 1;
}
