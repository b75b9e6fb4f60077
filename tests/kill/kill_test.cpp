// kill_test: kills the real program (the flow runner driving the real screens
// on real files) at each write to a data file in turn, with strace's fault
// injection, then starts it again, and checks what the files hold:
//  - at the kill, every record is as it was before the run or as one of the
//    run's own writes left it: none is torn;
//  - the restart acts on the launch word if and only if the killed run had
//    not cleared it yet: the word never acts twice, and is never lost;
//  - once the flow is run again after the restart, every file holds exactly
//    the bytes of the same runs without a kill.
// usage: kill_test FLOWRUN FLOW RESTART_FLOW WORK_DIR [SCREEN_OF_THE_WORD]
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <cstdio>
#include <map>
#include <set>

#include "file_diff.h"
#include "scenario.h"
#include "strace_log.h"

namespace {

struct Setup {
    QString flowrun, flow, restartFlow, work, wordScreen;
    QString seedFlow;  // the flow's statements that write files, alone
};

// The names of the files a run may write, for strace's path filter.
const QStringList dataFiles = [] {
    QStringList names{"WFICH142.WDO", "w_cai020.wdo", "w_imprc5.wdo", "w_perifx.wdo",
                      "WFICP_IA.WDO", "switch63.wdo", "W_FE1032.WDO"};
    for (int port = 1; port <= 12; ++port) names << QStringLiteral("Souvprt%1.wdo").arg(port);
    return names;
}();

void fail(const QString& what) {
    std::fprintf(stderr, "kill_test: %s\n", qPrintable(what));
    std::exit(1);
}

struct Run {
    QString report;
    bool killed = false;
};

// One run of flowrun on a flow in the data directory `dir`; seeded or taken
// as it stands; under strace, its writes logged, and the kill at write
// `killAt` when it is not 0.
Run runFlow(const Setup& s, const QString& flow, const QString& dir, bool seeded,
            const QString& log = {}, int killAt = 0) {
    QProcess p;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("KALVO_FLOW_DATA"), dir);
    env.insert(QStringLiteral("KALVO_FLOW_SEEDED"), seeded ? QStringLiteral("1") : QString());
    // What a killed run leaves behind (its Wine prefix, its ports) stays here.
    env.insert(QStringLiteral("TMPDIR"), s.work + QStringLiteral("/tmp"));
    p.setProcessEnvironment(env);
    QStringList args;
    QString program = s.flowrun;
    if (!log.isEmpty()) {
        program = QStringLiteral("strace");
        args = QStringList{"-f",      "-qq", "-y", "-xx", "-s",
                           "1000000", "-o",  log,  "-e",  "trace=write,pwrite64,lseek"};
        if (killAt) args << "-e" << QStringLiteral("inject=write:signal=KILL:when=%1").arg(killAt);
        for (const QString& name : dataFiles) args << "-P" << QDir(dir).filePath(name);
        args << s.flowrun;
    }
    args << flow;
    p.start(program, args);
    if (!p.waitForFinished(180000)) fail(QStringLiteral("%1 hangs").arg(flow));
    Run run{QString::fromUtf8(p.readAllStandardOutput()), false};
    const bool clean = p.exitStatus() == QProcess::NormalExit && p.exitCode() == 0;
    run.killed = !clean && run.report.isEmpty();
    if (!clean && !run.killed)
        fail(
            QStringLiteral("%1 failed: %2").arg(flow, QString::fromUtf8(p.readAllStandardError())));
    return run;
}

void copyDir(const QString& from, const QString& to) {
    QDir(to).removeRecursively();
    QDir().mkpath(to);
    for (const QString& name : QDir(from).entryList(QDir::Files))
        QFile::copy(QDir(from).filePath(name), QDir(to).filePath(name));
}

QByteArray recordOf(const QByteArray& content, qint64 index, int length) {
    QByteArray r = content.mid(index * length, length);
    return r + QByteArray(length - r.size(), '\0');  // beyond the end: zero bytes
}

// Every value each record of each file took during the run, its first one
// included: file -> record index -> values.
using History = std::map<QString, std::map<qint64, std::set<QByteArray>>>;

History historyOf(const DirSnapshot& before, const std::vector<LoggedWrite>& writes) {
    History h;
    for (const auto& [name, content] : before) {
        const int length = recordLengthOf(name);
        for (qint64 k = 0; k * length < content.size(); ++k)
            h[name][k].insert(recordOf(content, k, length));
    }
    for (const LoggedWrite& w : writes) {
        const int length = recordLengthOf(w.file);
        const qint64 inFile = before.count(w.file) ? before.at(w.file).size() : 0;
        if (w.offset % length || w.bytes.size() % length)
            fail(QStringLiteral("a write of %1 bytes at %2 in %3 is not of whole records")
                     .arg(w.bytes.size())
                     .arg(w.offset)
                     .arg(w.file));
        for (qint64 k = 0; k * length < w.bytes.size(); ++k) {
            std::set<QByteArray>& values = h[w.file][w.offset / length + k];
            // A record beyond the end of the file before the run read as
            // zero bytes then: a later write may leave it so (a hole).
            if (w.offset + k * length >= inFile) values.insert(QByteArray(length, '\0'));
            values.insert(w.bytes.mid(k * length, length));
        }
    }
    return h;
}

// The records of the directory that no write of the run and no former
// state explain: "WFICH142.WDO 3".
QStringList tornRecords(const DirSnapshot& now, const History& history) {
    QStringList torn;
    for (const auto& [name, content] : now) {
        const int length = recordLengthOf(name);
        const auto file = history.find(name);
        for (qint64 k = 0; k * length < content.size(); ++k) {
            const QByteArray record = recordOf(content, k, length);
            bool known = false;
            if (file != history.end())
                if (const auto values = file->second.find(k); values != file->second.end())
                    known = values->second.count(record) != 0;
            const bool hole =
                record.count('\0') == length && (file == history.end() || !file->second.count(k));
            if (!known && !hole) torn << QStringLiteral("%1 %2").arg(name).arg(k + 1);
        }
    }
    return torn;
}

// The number, from 1, of the first write that puts record 195 of
// WFICH142.WDO, where the launch word lies; 0 when none does.
int wordClearing(const std::vector<LoggedWrite>& writes) {
    const qint64 offset = 194 * 20;
    for (size_t i = 0; i < writes.size(); ++i) {
        const LoggedWrite& w = writes[i];
        if (w.file == QLatin1String("WFICH142.WDO") && w.offset <= offset &&
            offset < w.offset + w.bytes.size())
            return int(i + 1);
    }
    return 0;
}

QString seedOnlyFlow(const QString& flow, const QString& work) {
    QFile in(flow);
    if (!in.open(QIODevice::ReadOnly)) fail(QStringLiteral("cannot read %1").arg(flow));
    QByteArray seeds;
    for (const QByteArray& line : in.readAll().split('\n')) {
        const QByteArray word = line.trimmed().split(' ').value(0);
        if (word == "param" || word == "record" || word == "file" || word == "ticketline")
            seeds += line + '\n';
    }
    const QString path = QDir(work).filePath(QStringLiteral("seeds.flow"));
    QFile out(path);
    if (!out.open(QIODevice::WriteOnly) || out.write(seeds) != seeds.size())
        fail(QStringLiteral("cannot write %1").arg(path));
    return path;
}

// The restart, then the flow again (the user, or the sales program, doing
// again what was cut). What went wrong with the launch word, if anything.
QStringList restartAndRerun(const Setup& s, const QString& dir, bool wordLeft) {
    QStringList problems;
    const Run restart = runFlow(s, s.restartFlow, dir, true);
    if (!s.wordScreen.isEmpty() &&
        restart.report.contains(QStringLiteral("screen ") + s.wordScreen) != wordLeft)
        problems << (wordLeft ? QStringLiteral("the launch word was lost")
                              : QStringLiteral("the launch word acted twice"));
    runFlow(s, s.flow, dir, false);
    return problems;
}

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const QStringList a = app.arguments();
    if (a.size() < 5)
        fail(QStringLiteral("usage: kill_test FLOWRUN FLOW RESTART_FLOW WORK_DIR [SCREEN]"));
    Setup s{a[1], a[2], a[3], a[4], a.value(5), {}};
    const QString name = QFileInfo(s.flow).baseName();
    s.work = QDir(s.work).absoluteFilePath(name);
    QDir(s.work).removeRecursively();
    QDir().mkpath(s.work);
    s.work = QFileInfo(s.work).canonicalFilePath();  // strace matches resolved paths
    QDir().mkpath(s.work + QStringLiteral("/tmp"));
    s.seedFlow = seedOnlyFlow(s.flow, s.work);
    const QString seeded = s.work + QStringLiteral("/seeded"),
                  ref = s.work + QStringLiteral("/ref"), cut = s.work + QStringLiteral("/cut"),
                  log = s.work + QStringLiteral("/strace.log");

    // The run without a kill: its writes, then the restart and the flow again.
    runFlow(s, s.seedFlow, seeded, false);
    const DirSnapshot before = snapshotDir(seeded);
    copyDir(seeded, ref);
    if (runFlow(s, s.flow, ref, true, log).killed) fail(QStringLiteral("the run was killed"));
    const std::vector<LoggedWrite> writes = readLoggedWrites(log);
    for (const LoggedWrite& w : writes)
        if (w.positioned) fail(QStringLiteral("pwrite64 is used: the kill counts writes only"));
    const History history = historyOf(before, writes);
    const int clearing = wordClearing(writes);
    if (!s.wordScreen.isEmpty() && !clearing) fail(QStringLiteral("no write clears the word"));
    if (const QStringList p = restartAndRerun(s, ref, false); !p.isEmpty()) fail(p.join(' '));
    const DirSnapshot wanted = snapshotDir(ref);

    int recovered = 0;
    const int points = int(writes.size());
    for (int n = 1; n <= points; ++n) {
        copyDir(seeded, cut);
        const LoggedWrite& w = writes[size_t(n - 1)];
        const QString where = QStringLiteral("kill at write %1 (%2, record %3, %4 bytes)")
                                  .arg(n)
                                  .arg(w.file)
                                  .arg(w.offset / recordLengthOf(w.file) + 1)
                                  .arg(w.bytes.size());
        if (!runFlow(s, s.flow, cut, true, log, n).killed) {
            std::printf("%s: the program was not killed\n", qPrintable(where));
            continue;
        }
        QStringList problems;
        const QStringList torn = tornRecords(snapshotDir(cut), history);
        if (!torn.isEmpty())
            problems << QStringLiteral("torn: ") + torn.mid(0, 5).join(QStringLiteral(", "));
        problems << restartAndRerun(s, cut, clearing && n <= clearing);
        if (const QStringList d = changedRecords(wanted, snapshotDir(cut)); !d.isEmpty())
            problems << QStringLiteral("after the restart: ") +
                            d.mid(0, 3).join(QStringLiteral("; "));
        if (problems.isEmpty())
            ++recovered;
        else
            std::printf("%s: %s\n", qPrintable(where),
                        qPrintable(problems.join(QStringLiteral("; "))));
    }
    std::printf("%s: %d kill points tried, %d recovered\n", qPrintable(name), points, recovered);
    return points > 0 && recovered == points ? 0 : 1;
}
