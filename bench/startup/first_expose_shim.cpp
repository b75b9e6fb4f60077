// Preloaded into a Qt program by the start-up benchmark (LD_PRELOAD), never
// linked into the tool. At the first window the platform exposes, it writes
// the monotonic time and the peak resident size (VmHWM) to the file
// descriptor named by BENCH_REPORT_FD, then ends the process at once. The
// measured program is not changed and reads nothing for it.
#include <time.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QEvent>
#include <QWindow>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

long peakKilobytes() {
    FILE* status = std::fopen("/proc/self/status", "r");
    if (!status) return -1;
    char line[256];
    long kb = -1;
    while (std::fgets(line, sizeof line, status))
        if (std::strncmp(line, "VmHWM:", 6) == 0) kb = std::strtol(line + 6, nullptr, 10);
    std::fclose(status);
    return kb;
}

class FirstExpose : public QObject {
  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Expose && watched->isWindowType() &&
            static_cast<QWindow*>(watched)->isExposed())
            report();
        return false;
    }

  private:
    [[noreturn]] static void report() {
        timespec now{};
        clock_gettime(CLOCK_MONOTONIC, &now);
        const char* fd = std::getenv("BENCH_REPORT_FD");
        char text[96];
        const int n =
            std::snprintf(text, sizeof text, "%lld %ld\n",
                          (long long)now.tv_sec * 1000000000LL + now.tv_nsec, peakKilobytes());
        if (fd && n > 0 && write(std::atoi(fd), text, size_t(n)) != n) _exit(3);
        _exit(0);
    }
};

void installFilter() {
    QCoreApplication::instance()->installEventFilter(new FirstExpose);
}

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(installFilter)
