// The start-up of menuimp on real files where flows cannot reach: random
// bytes in every file, a full disk, a directory it may not write in, and the
// sales program writing beside it never make it crash, hang or lose a record.
// (What a start writes, damaged files and the station are the flows'.)
#include <fcntl.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QLabel>
#include <QRandomGenerator>
#include <QTest>
#include <cstring>

#include "startup/menuimp.h"
#include "store/records.h"
#include "support/test_run.h"

namespace {

// The start-up in this process: nothing open before menuimp's load.
struct Startup : TestRun {
    Startup() : TestRun({}, NoFile) {}
    menuimp menu{ctx};
    void run() { menu.load(); }
    QString label14() const { return menu.findChild<QLabel*>("Label14")->text(); }
};

QByteArray blanks(int count) {
    return QByteArray(count, ' ');
}
QStringList filesHere() {
    return QDir::current().entryList(QDir::Files, QDir::Name);
}
std::map<QString, QByteArray> snapshot() {
    std::map<QString, QByteArray> files;
    for (const QString& name : filesHere()) files[name] = ScratchDir::read(name);
    return files;
}

}  // namespace

class StartupTest : public QObject {
    Q_OBJECT
  private slots:
    // Every file full of random bytes: the start-up may change the records of
    // the table and nothing else (the switch file is the tool's own and is
    // made again when its marker is gone; the parameter table is only read).
    void randomFilesOnlyTheTableChanges() {
        Startup s;
        QRandomGenerator random(20261116);
        auto noise = [&random](qsizetype size) {
            QByteArray bytes(size, '\0');
            for (char& c : bytes) c = char(random.bounded(256));
            return bytes;
        };
        const std::pair<const char*, int> sizes[] = {{"WFICH142.WDO", 300 * 20},
                                                     {"w_cai020.wdo", 3100 * 20},
                                                     {"w_perifx.wdo", 2100 * 20},
                                                     {"w_imprc5.wdo", 1100 * 20},
                                                     {"switch63.wdo", 1024}};
        for (const auto& [name, size] : sizes) ScratchDir::write(name, noise(size));
        QByteArray params = noise(6 * 144);
        params.replace(110, 4, QByteArray("\x05\x00\x00\x00", 4));  // a count the file holds
        ScratchDir::write("WFICP_IA.WDO", params);
        const auto before = snapshot();
        s.run();
        QCOMPARE(s.ui.screensShown.value(0), QStringLiteral("selimp4 modal"));
        QCOMPARE(ScratchDir::read("WFICP_IA.WDO"), params);
        for (const WritableRecords& w : writableRecords()) {
            if (!before.count(w.fileName)) continue;
            const QByteArray& old = before.at(w.fileName);
            const QByteArray now = ScratchDir::read(w.fileName);
            QVERIFY(now.size() >= old.size());
            for (int n = 1; n <= old.size() / 20; ++n)
                if (old.mid((n - 1) * 20, 20) != now.mid((n - 1) * 20, 20) &&
                    !std::binary_search(w.numbers.begin(), w.numbers.end(), n))
                    QFAIL(
                        qPrintable(QStringLiteral("%1 record %2 changed").arg(w.fileName).arg(n)));
        }
    }

    // A disk that takes no more bytes (a full disk, a quota), or a directory
    // the tool may not write in: every write fails, each failing step is
    // skipped, and the menu still comes.
    void diskRefusesWrites() {
        Startup s;
        rlimit saved{};
        getrlimit(RLIMIT_FSIZE, &saved);
        const sighandler_t previous = signal(SIGXFSZ, SIG_IGN);
        rlimit none = saved;
        none.rlim_cur = 0;
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &none), 0);
        s.run();
        setrlimit(RLIMIT_FSIZE, &saved);
        signal(SIGXFSZ, previous);
        QCOMPARE(s.ui.screensShown, QStringList{"selimp4 modal"});
        QCOMPARE(s.label14(), QStringLiteral("Poste principal ou Serveur"));
        QCOMPARE(ScratchDir::read("WFICH142.WDO"), QByteArray());
    }
    void readOnlyDirectory() {
        if (geteuid() == 0) QSKIP("root writes into a read-only directory");
        Startup s;
        QFile::setPermissions(s.dir.path(), QFile::ReadOwner | QFile::ExeOwner);
        s.run();
        QFile::setPermissions(s.dir.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        QCOMPARE(s.ui.screensShown, QStringList{"selimp4 modal"});
        QCOMPARE(filesHere(), QStringList());
    }

    // The sales program beside the tool: another process writes records the
    // tool does not own, in the same files, all the while the start-up runs.
    // None of its writes is lost, and it reads each record the tool put at
    // once, while the tool still holds the file open.
    void secondProcessWritesBeside() {
        Startup s;
        ScratchDir::write("WFICH142.WDO", "#INIT#01-01-2025    " + blanks(200 * 20));
        ScratchDir::write("w_cai020.wdo", QByteArray(3000 * 20, '.'));
        int go[2], done[2];
        QCOMPARE(pipe(go), 0);
        QCOMPARE(pipe(done), 0);
        const pid_t child = fork();
        if (child == 0) {
            // Raw system calls only, in the child.
            const int main = ::open("WFICH142.WDO", O_RDWR);
            const int sales = ::open("w_cai020.wdo", O_RDWR);
            char stop = 0;
            if (::read(go[0], &stop, 1) != 1) _exit(2);
            for (int i = 0; i < 400; ++i) {
                char text[21];
                snprintf(text, sizeof text, "other %-14d", i);
                if (pwrite(main, text, 20, off_t(202 + i % 50) * 20) != 20) _exit(3);
                if (pwrite(sales, text, 20, off_t(2100 + i % 50) * 20) != 20) _exit(3);
            }
            char seen[40];
            if (::read(done[0], &stop, 1) != 1) _exit(2);
            if (pread(sales, seen, 20, off_t(1998) * 20) != 20) _exit(4);
            if (pread(sales, seen + 20, 20, off_t(2041) * 20) != 20) _exit(4);
            const bool ok = memcmp(seen, "##00:00:10:00:00:00 ", 20) == 0 &&
                            memcmp(seen + 20, "##4210752           ", 20) == 0;
            _exit(ok ? 0 : 5);
        }
        QCOMPARE(::write(go[1], "g", 1), 1);
        s.run();
        QVERIFY(s.ctx.store.isOpen(20));  // the tool still holds its files
        QCOMPARE(::write(done[1], "d", 1), 1);
        int status = 0;
        QCOMPARE(waitpid(child, &status, 0), child);
        QCOMPARE(WEXITSTATUS(status), 0);
        for (int i = 350; i < 400; ++i) {
            const QByteArray text = padded("other " + QByteArray::number(i));
            QCOMPARE(ScratchDir::record("WFICH142.WDO", 203 + i % 50), text);
            QCOMPARE(ScratchDir::record("w_cai020.wdo", 2101 + i % 50), text);
        }
        for (int fd : {go[0], go[1], done[0], done[1]}) ::close(fd);
    }
};

QTEST_MAIN(StartupTest)
#include "test_startup.moc"
