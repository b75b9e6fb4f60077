// Start-up benchmark: the real program against minimal Qt Widgets programs,
// side by side in one run, all offscreen. The tool's first window is the
// standard installation with the system's printers, so its floor is a window
// that lists the same printers through Qt; the bare window stands beside it.
// Each run is timed from the spawn to the first window the platform exposes, and its peak memory
// (VmHWM) is taken at that moment; a small preloaded library reports both (see
// first_expose_shim.cpp). The tool runs in a fresh empty directory (a first
// start, which makes its files) and again in a directory that has them.
//
// bench_startup [rounds]   (run from the build's bin folder or give paths
// through the folder this program lies in)
#include <spawn.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <stdexcept>
#include <string>
#include <vector>

extern char** environ;

namespace {

struct Sample {
    double ms = 0;
    long kb = 0;
};

long long monotonicNs() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return (long long)now.tv_sec * 1000000000LL + now.tv_nsec;
}

Sample runOnce(const QString& program, const QString& shim, const QString& folder) {
    int report[2];
    if (pipe(report) != 0) throw std::runtime_error("pipe");
    std::vector<std::string> env;
    for (char** e = environ; *e; ++e) {
        const std::string v = *e;
        if (v.rfind("LD_PRELOAD=", 0) && v.rfind("QT_QPA_PLATFORM=", 0) &&
            v.rfind("BENCH_REPORT_FD=", 0))
            env.push_back(v);
    }
    env.push_back("LD_PRELOAD=" + shim.toStdString());
    env.push_back("QT_QPA_PLATFORM=offscreen");
    env.push_back("BENCH_REPORT_FD=" + std::to_string(report[1]));
    std::vector<char*> envp;
    for (auto& v : env) envp.push_back(v.data());
    envp.push_back(nullptr);
    std::string path = program.toStdString();
    char* argv[] = {path.data(), nullptr};

    const QString previous = QDir::currentPath();
    QDir::setCurrent(folder);
    pid_t pid = 0;
    const long long start = monotonicNs();
    const int failed = posix_spawn(&pid, path.c_str(), nullptr, nullptr, argv, envp.data());
    QDir::setCurrent(previous);
    close(report[1]);
    if (failed) throw std::runtime_error("cannot start " + path);
    char line[96] = {};
    const ssize_t got = read(report[0], line, sizeof line - 1);
    close(report[0]);
    int status = 0;
    waitpid(pid, &status, 0);
    long long shown = 0;
    long kb = 0;
    if (got <= 0 || std::sscanf(line, "%lld %ld", &shown, &kb) != 2)
        throw std::runtime_error(path + " showed no window");
    return {double(shown - start) / 1e6, kb};
}

double median(std::vector<double> v) {
    std::sort(v.begin(), v.end());
    return v[v.size() / 2];
}

void row(const char* name, const std::vector<Sample>& samples, const std::vector<Sample>& floor) {
    std::vector<double> ms, kb, floorMs, floorKb;
    for (const Sample& s : samples) ms.push_back(s.ms), kb.push_back(double(s.kb));
    for (const Sample& s : floor) floorMs.push_back(s.ms), floorKb.push_back(double(s.kb));
    const double t = median(ms), m = median(kb), t0 = median(floorMs), m0 = median(floorKb);
    std::printf("%-22s %9.1f ms %9.0f kB   time x%.2f   memory x%.2f\n", name, t, m, t / t0,
                m / m0);
}

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const int rounds = argc > 1 ? std::max(1, std::atoi(argv[1])) : 15;
    const QDir bin(QCoreApplication::applicationDirPath());
    const QString tool = bin.filePath("kalvo-periph");
    const QString floorProgram = bin.filePath("bench_minimal_window");
    const QString listProgram = bin.filePath("bench_printer_list_window");
    const QString shim = bin.filePath("libbench_first_expose.so");

    std::vector<Sample> floor, list, first, next;
    QTemporaryDir kept;  // the directory of the later starts keeps its files
    try {
        runOnce(tool, shim, kept.path());  // makes the files; also warms the caches
        runOnce(floorProgram, shim, kept.path());
        runOnce(listProgram, shim, kept.path());
        for (int r = 0; r < rounds; ++r) {
            QTemporaryDir fresh;
            floor.push_back(runOnce(floorProgram, shim, fresh.path()));
            list.push_back(runOnce(listProgram, shim, fresh.path()));
            first.push_back(runOnce(tool, shim, fresh.path()));
            next.push_back(runOnce(tool, shim, kept.path()));
        }
    } catch (const std::exception& e) {
        std::fprintf(stderr, "bench_startup: %s\n", e.what());
        return 1;
    }
    std::printf("start-up to the first window, offscreen, median of %d rounds\n", rounds);
    std::printf("%-22s %12s %12s\n", "program", "time", "VmHWM");
    row("minimal Qt window", floor, floor);
    row("Qt window + printers", list, list);
    row("kalvo-periph, first", first, list);
    row("kalvo-periph, next", next, list);
    std::printf("ratios of the tool against the window listing the printers through Qt\n");
    std::printf("target: time and memory within x1.20 of that window\n");
    return 0;
}
