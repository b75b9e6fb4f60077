// The start-up sequence of menuimp on real files: what a first start writes
// byte for byte, the station choice, and that damaged files, random bytes, a
// full disk or a second writer never make it crash, hang or lose a record.
#include <fcntl.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QRandomGenerator>
#include <QTest>
#include <cstring>

#include "../store/scratch_dir.h"
#include "harness.h"
#include "store/param_table.h"
#include "store/record_store.h"
#include "store/records.h"

namespace {

QByteArray blanks(int count) {
    return QByteArray(count, ' ');
}
QByteArray rec20(const QByteArray& text) {
    return text.leftJustified(20, ' ');
}
QByteArray recordOf(const QByteArray& file, int n, int length = 20) {
    return file.mid(qsizetype(n - 1) * length, length);
}
QStringList filesHere() {
    return QDir::current().entryList(QDir::Files, QDir::Name);
}
void putParam(const QString& key, const QString& value) {
    RecordStore store;
    ecrit_param(store, key, value);
}

// What a first start must leave in an empty directory.
QByteArray firstSwitchFile() {
    return "#INIT#11-16-202610:20:30" + blanks(88) + "1 " + blanks(910);
}
QByteArray firstSalesFile() {
    QByteArray bytes(2047 * 20, '\0');
    bytes.replace(1998 * 20, 20, "##00:00:10:00:00:00 ");
    for (int n = 2042; n <= 2047; ++n) bytes.replace((n - 1) * 20, 20, rec20("##4210752"));
    return bytes;
}

}  // namespace

class StartupTest : public QObject {
    Q_OBJECT
  private slots:
    void firstStartInAnEmptyDirectory() {
        ScratchDir dir;
        {
            Startup s;
            s.run();
            QCOMPARE(s.ui.screens, QStringList{"selimp4 modal"});
            QCOMPARE(s.ctx.fichier_perif, 20);
            QCOMPARE(s.label14(), QStringLiteral("Poste principal ou Serveur"));
            QCOMPARE(s.ctx.switchs, firstSwitchFile().mid(24));
        }
        QCOMPARE(filesHere(),
                 (QStringList{"WFICH142.WDO", "WFICP_IA.WDO", "switch63.wdo", "w_cai020.wdo"}));
        QCOMPARE(ScratchDir::read("WFICH142.WDO"), "#INIT#11-16-2026    " + blanks(200 * 20));
        QCOMPARE(ScratchDir::read("switch63.wdo"), firstSwitchFile());
        QCOMPARE(ScratchDir::read("w_cai020.wdo"), firstSalesFile());
        QCOMPARE(ScratchDir::read("WFICP_IA.WDO"), QByteArray());

        // The next start, another day, finds every marker and writes nothing.
        std::map<QString, QByteArray> before;
        for (const QString& name : filesHere()) before[name] = ScratchDir::read(name);
        Startup again;
        again.platform.clock = QDateTime(QDate(2027, 1, 2), QTime(8, 0));
        again.run();
        QCOMPARE(again.ui.screens, QStringList{"selimp4 modal"});
        for (const auto& [name, bytes] : before) QCOMPARE(ScratchDir::read(name), bytes);
    }

    void station_data() {
        QTest::addColumn<bool>("hasKey");
        QTest::addColumn<QString>("numPoste");
        QTest::addColumn<QString>("label");
        QTest::addColumn<int>("fichierPerif");
        QTest::newRow("absent") << false << ""
                                << "Poste principal ou Serveur" << 20;
        QTest::newRow("empty") << true << ""
                               << "Poste principal ou Serveur" << 20;
        QTest::newRow("zero") << true << "0"
                              << "Poste principal ou Serveur" << 20;
        QTest::newRow("letters") << true << "abc"
                                 << "Poste principal ou Serveur" << 20;
        QTest::newRow("three") << true << "3"
                               << "Caisse Réseau : 3" << 120;
        QTest::newRow("decimal comma") << true << "2,5"
                                       << "Caisse Réseau : 2" << 120;
        QTest::newRow("blanks inside") << true << " 1 2"
                                       << "Caisse Réseau : 12" << 120;
    }
    void station() {
        QFETCH(bool, hasKey);
        QFETCH(QString, numPoste);
        QFETCH(QString, label);
        QFETCH(int, fichierPerif);
        ScratchDir dir;
        if (hasKey) putParam("NUM_POSTE", numPoste);
        // What the sales program holds in records 1 to 16: a network till's
        // first start must not copy it (file 20 is not open yet).
        ScratchDir::write("w_cai020.wdo", QByteArray(16 * 20, 'S'));
        Startup s;
        s.run();
        QCOMPARE(s.label14(), label);
        QCOMPARE(int(s.ctx.fichier_perif), fichierPerif);
        QVERIFY(s.ctx.store.isOpen(20));
        QCOMPARE(s.ctx.store.fileName(20), QStringLiteral("w_cai020.wdo"));
        const bool till = fichierPerif == 120;
        QCOMPARE(s.ctx.store.isOpen(120), till);
        QCOMPARE(QFile::exists("w_perifx.wdo"), till);
        if (till)
            QCOMPARE(ScratchDir::read("w_perifx.wdo"), "#INIT#11-16-2026    " + blanks(1999 * 20));
        QCOMPARE(s.ui.screens, QStringList{"selimp4 modal"});
    }

    // Every file full of random bytes: the start-up may change the records of
    // the table and nothing else (the switch file is the tool's own and is
    // made again when its marker is gone; the parameter table is only read).
    void randomFilesOnlyTheTableChanges() {
        ScratchDir dir;
        QRandomGenerator random(20261116);
        auto noise = [&random](qsizetype size) {
            QByteArray bytes(size, '\0');
            for (char& c : bytes) c = char(random.bounded(256));
            return bytes;
        };
        ScratchDir::write("WFICH142.WDO", noise(300 * 20));
        ScratchDir::write("w_cai020.wdo", noise(3100 * 20));
        ScratchDir::write("w_perifx.wdo", noise(2100 * 20));
        ScratchDir::write("w_imprc5.wdo", noise(1100 * 20));
        ScratchDir::write("switch63.wdo", noise(1024));
        QByteArray params = noise(6 * 144);
        params.replace(110, 4, QByteArray("\x05\x00\x00\x00", 4));  // a count the file holds
        ScratchDir::write("WFICP_IA.WDO", params);
        std::map<QString, QByteArray> before;
        for (const QString& name : filesHere()) before[name] = ScratchDir::read(name);

        Startup s;
        s.run();
        QCOMPARE(s.ui.screens.value(0), QStringLiteral("selimp4 modal"));

        QCOMPARE(ScratchDir::read("WFICP_IA.WDO"), params);
        std::map<QString, std::vector<int>> writable;
        for (const WritableRecords& w : writableRecords()) writable[w.fileName] = w.numbers;
        for (const auto& [name, old] : before) {
            if (!writable.count(name)) continue;
            const QByteArray now = ScratchDir::read(name);
            QCOMPARE(now.size() >= old.size(), true);
            for (int n = 1; n <= old.size() / 20; ++n) {
                if (recordOf(old, n) == recordOf(now, n)) continue;
                const auto& allowed = writable[name];
                if (!std::binary_search(allowed.begin(), allowed.end(), n))
                    QFAIL(qPrintable(QStringLiteral("%1 record %2 changed").arg(name).arg(n)));
            }
        }
    }

    void damagedFiles_data() {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("truncated 142") << "WFICH142.WDO" << QByteArray("#INI");
        QTest::newRow("marker one late") << "WFICH142.WDO" << QByteArray(" #INIT#01-01-2025");
        QTest::newRow("142 not whole records")
            << "WFICH142.WDO" << QByteArray("#INIT#") + blanks(4030);
        QTest::newRow("truncated sales") << "w_cai020.wdo" << QByteArray(13, 'x');
        QTest::newRow("garbled theme") << "w_cai020.wdo"
                                       << QByteArray(1998 * 20, 'z') + rec20("##zz:yy:-x") +
                                              QByteArray(42 * 20, '\xff') + rec20("##abc");
        QTest::newRow("short switch") << "switch63.wdo" << QByteArray("#INIT#");
        QTest::newRow("switch letters") << "switch63.wdo"
                                        << "#INIT#" + QByteArray(1018, '\xe9');
        QTest::newRow("negative count")
            << "WFICP_IA.WDO" << QByteArray(110, ' ') + QByteArray("\xfb\xff\xff\xff", 4);
        QTest::newRow("garbled count")
            << "WFICP_IA.WDO" << QByteArray(110, ' ') + QByteArray("\xff\xff\xff\x7f", 4);
        QTest::newRow("count beyond the end")
            << "WFICP_IA.WDO" << QByteArray(110, ' ') + QByteArray("\x40\x00\x00\x00", 4);
        QTest::newRow("garbled station")
            << "WFICP_IA.WDO"
            << QByteArray(110, ' ') + QByteArray("\x01\x00\x00\x00", 4) + QByteArray(30, ' ') +
                   QByteArray("\xff\xfe 7\x01", 5) + QByteArray(101, ' ') + QByteArray(12, '\0') +
                   QByteArray("NUM_POSTE").leftJustified(26, ' ');
    }
    void damagedFiles() {
        QFETCH(QString, file);
        QFETCH(QByteArray, bytes);
        ScratchDir dir;
        ScratchDir::write(file, bytes);
        Startup s;
        s.run();
        QCOMPARE(s.ui.screens, QStringList{"selimp4 modal"});
        QVERIFY(s.label14().startsWith("Poste principal") || s.label14().startsWith("Caisse"));
        // WFICH142.WDO always ends up with its marker and at least 201 records.
        const QByteArray main = ScratchDir::read("WFICH142.WDO");
        QVERIFY(main.startsWith("#INIT#"));
        QVERIFY(main.size() >= 4020);
    }

    // A disk that takes no more bytes (a full disk, a quota): every write
    // fails, each failing step is skipped, and the menu still comes.
    void diskRefusesWrites() {
        ScratchDir dir;
        rlimit saved{};
        getrlimit(RLIMIT_FSIZE, &saved);
        const sighandler_t previous = signal(SIGXFSZ, SIG_IGN);
        rlimit none = saved;
        none.rlim_cur = 0;
        QCOMPARE(setrlimit(RLIMIT_FSIZE, &none), 0);
        {
            Startup s;
            s.run();
            QCOMPARE(s.ui.screens, QStringList{"selimp4 modal"});
            QCOMPARE(s.label14(), QStringLiteral("Poste principal ou Serveur"));
        }
        setrlimit(RLIMIT_FSIZE, &saved);
        signal(SIGXFSZ, previous);
        QCOMPARE(ScratchDir::read("WFICH142.WDO"), QByteArray());
    }

    void readOnlyDirectory() {
        if (geteuid() == 0) QSKIP("root writes into a read-only directory");
        ScratchDir dir;
        QFile::setPermissions(dir.path(), QFile::ReadOwner | QFile::ExeOwner);
        {
            Startup s;
            s.run();
            QCOMPARE(s.ui.screens, QStringList{"selimp4 modal"});
        }
        QFile::setPermissions(dir.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        QCOMPARE(filesHere(), QStringList());
    }

    // The sales program beside the tool: another process writes records the
    // tool does not own, in the same files, all the while the start-up runs.
    // None of its writes is lost, and it reads each record the tool put at
    // once, while the tool still holds the file open.
    void secondProcessWritesBeside() {
        ScratchDir dir;
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
        Startup s;
        QCOMPARE(::write(go[1], "g", 1), 1);
        s.run();
        QVERIFY(s.ctx.store.isOpen(20));  // the tool still holds its files
        QCOMPARE(::write(done[1], "d", 1), 1);
        int status = 0;
        QCOMPARE(waitpid(child, &status, 0), child);
        QCOMPARE(WEXITSTATUS(status), 0);
        const QByteArray main = ScratchDir::read("WFICH142.WDO");
        const QByteArray sales = ScratchDir::read("w_cai020.wdo");
        for (int i = 350; i < 400; ++i) {
            const QByteArray text =
                QByteArray("other ") + QByteArray::number(i).leftJustified(14, ' ');
            QCOMPARE(recordOf(main, 203 + i % 50), text);
            QCOMPARE(recordOf(sales, 2101 + i % 50), text);
        }
        for (int fd : {go[0], go[1], done[0], done[1]}) ::close(fd);
    }
};

QTEST_MAIN(StartupTest)
#include "test_startup.moc"
