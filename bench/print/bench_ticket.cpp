// Sends the standard test ticket many times over a pseudo-terminal pair, the
// port opened, set, written, drained and closed around each ticket as the
// screens do, and prints side by side: the time per ticket of the program's
// own path, the floor of the same steps with plain system calls on the same
// pair, and the time the same bytes take on the wire at 9600 baud.
//
//   bench_print_ticket [tickets]     (200 by default)
#include <fcntl.h>
#include <termios.h>
#include <time.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QLockFile>
#include <cstdio>

#include "print/accents.h"
#include "print/channels.h"
#include "support/pty_pair.h"
#include "support/wine_ports.h"
#include "print/qt_mscomm.h"
#include "print/standard_ticket.h"

namespace {

constexpr int portNumber = 3;
constexpr int mode = 2;

// The bytes of each write as they go on the wire.
QList<QByteArray> wirePieces(const Job& job) {
    QList<QByteArray> pieces;
    for (const Write& w : job.writes) {
        QByteArray bytes = w.bytes;
        if (w.how == Write::How::Translated) traduit_accents(bytes, mode);
        pieces << bytes;
    }
    return pieces;
}

// The program's own path; steps[] gets the time of open, settings, writes
// and close, in ms per ticket.
double cpuMs() {
    timespec t{};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
    return double(t.tv_sec) * 1e3 + double(t.tv_nsec) / 1e6;
}

// What Qt's serial port lock costs alone: the lock file is created, written
// and synced to disk at each open, removed at each close.
double lockFileCost(const QString& folder, int tickets) {
    QElapsedTimer clock;
    clock.start();
    for (int i = 0; i < tickets; ++i) {
        QLockFile lock(folder + QStringLiteral("/LCK..bench_print_ticket"));
        if (!lock.tryLock(0)) return -1;
        lock.unlock();
    }
    return double(clock.nsecsElapsed()) / 1e6 / tickets;
}

double programPath(const Job& job, int tickets, double steps[4]) {
    QtMSComm port;
    const LetEventsRun letEventsRun = [] { QCoreApplication::processEvents(); };
    qint64 spent[4] = {0, 0, 0, 0};
    QElapsedTimer clock;
    clock.start();
    for (int i = 0; i < tickets; ++i) {
        qint64 t0 = clock.nsecsElapsed();
        port.setCommPort(portNumber);
        port.setPortOpen(true);
        qint64 t1 = clock.nsecsElapsed();
        port.setSettings("9600,n,8,1");
        qint64 t2 = clock.nsecsElapsed();
        sendSerial(port, job, mode, letEventsRun);
        qint64 t3 = clock.nsecsElapsed();
        port.setPortOpen(false);
        qint64 t4 = clock.nsecsElapsed();
        spent[0] += t1 - t0;
        spent[1] += t2 - t1;
        spent[2] += t3 - t2;
        spent[3] += t4 - t3;
    }
    for (int k = 0; k < 4; ++k) steps[k] = double(spent[k]) / 1e6 / tickets;
    return double(clock.nsecsElapsed()) / 1e6 / tickets;
}

double plainCalls(const QByteArray& device, const QList<QByteArray>& pieces, int tickets) {
    QElapsedTimer clock;
    clock.start();
    for (int i = 0; i < tickets; ++i) {
        // Opened without waiting for a carrier, then written in blocking mode.
        const int fd = ::open(device.constData(), O_RDWR | O_NOCTTY | O_NONBLOCK);
        if (fd < 0) return -1;
        ::fcntl(fd, F_SETFL, ::fcntl(fd, F_GETFL) & ~O_NONBLOCK);
        termios t{};
        ::tcgetattr(fd, &t);
        ::cfmakeraw(&t);
        ::cfsetspeed(&t, B9600);
        t.c_cflag |= CLOCAL | CREAD;
        ::tcsetattr(fd, TCSANOW, &t);
        for (const QByteArray& piece : pieces) {
            if (!piece.isEmpty() &&
                ::write(fd, piece.constData(), size_t(piece.size())) != piece.size()) {
                ::close(fd);
                return -1;
            }
        }
        ::tcdrain(fd);
        ::close(fd);
    }
    return double(clock.nsecsElapsed()) / 1e6 / tickets;
}

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const int tickets = argc > 1 ? qMax(1, atoi(argv[1])) : 200;
    PtyPair pty;
    WinePorts ports;
    if (!pty.ok() || !ports.link(portNumber, pty.slavePath())) {
        std::fprintf(stderr, "no pseudo-terminal pair\n");
        return 1;
    }
    const Job job = composeTestTicket(standardTicketFields());
    const QList<QByteArray> pieces = wirePieces(job);
    const qsizetype ticketBytes = pieces.join().size();

    double steps[4];
    programPath(job, 1, steps);  // the first lock file and the first open of the device
    pty.received(100);
    const double cpuBefore = cpuMs();
    const double program = programPath(job, tickets, steps);
    const double programCpu = (cpuMs() - cpuBefore) / tickets;
    const qsizetype programReceived = pty.received(200).size();
    const double floor = plainCalls(QFile::encodeName(pty.slavePath()), pieces, tickets);
    const qsizetype floorReceived = pty.received(200).size();
    const double wire = double(ticketBytes) * 10 * 1000 / 9600;

    std::printf("standard ticket: %lld bytes, %zu writes, %d tickets\n", (long long)ticketBytes,
                job.writes.size(), tickets);
    std::printf("%-34s %10s\n", "", "ms/ticket");
    std::printf("%-34s %10.3f\n", "program (QtMSComm, open..close)", program);
    std::printf("  of which open %.3f, settings %.3f, writes %.3f, close %.3f\n", steps[0],
                steps[1], steps[2], steps[3]);
    std::printf("%-34s %10.3f\n", "  of it on the processor", programCpu);
    std::printf("%-34s %10.3f\n", "floor (open/tcsetattr/write/close)", floor);
    std::printf("%-34s %10.3f\n", "wire at 9600 baud, 10 bits a byte", wire);
    std::printf("Qt's port lock alone: %.3f in /var/lock, %.3f on tmpfs (/dev/shm)\n",
                lockFileCost(QStringLiteral("/var/lock"), tickets),
                lockFileCost(QStringLiteral("/dev/shm"), tickets));
    std::printf(
        "program / wire: %.3f %% of the time, %.3f %% on the processor (target under 1 %%)\n",
        100 * program / wire, 100 * programCpu / wire);
    const bool complete =
        programReceived == ticketBytes * tickets && floorReceived == ticketBytes * tickets;
    std::printf("bytes at the far end: %s\n", complete ? "all" : "MISSING");
    return complete ? 0 : 1;
}
