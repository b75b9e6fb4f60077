// flowrun: runs one flow scenario through the real screens and prints what
// happened as stable text (see README.md in this folder).
#include <unistd.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <cstdio>
#include <optional>

#include "app/screens.h"
#include "file_diff.h"
#include "flow_interaction.h"
#include "report.h"
#include "scenario.h"
#include "shell/fonts.h"
#include "shell/screen_registry.h"
#include "step_runner.h"
#include "store/param_table.h"
#include "store/record_store.h"
#include "support/test_platform.h"
#include "virtual_printers.h"

namespace {

void seed(const Scenario& s) {
    for (const SeedFile& f : s.files) {
        QFile out(f.file);
        if (!out.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
            out.write(f.bytes) != f.bytes.size())
            throw std::runtime_error("cannot seed " + f.file.toStdString());
    }
    RecordStore store;
    for (const SeedRecord& r : s.records) {
        store.open(1, r.file, recordLengthOf(r.file));
        store.put(1, r.number, r.bytes);
    }
    store.closeAll();
    for (const auto& [key, value] : s.params) ecrit_param(store, key, value);
}

// The test platform, with the scenario's ports, USB families and printers,
// whose browser starts and whose printed documents are written to the report.
class FlowPlatform : public TestPlatform {
  public:
    FlowPlatform(const Scenario& s, FlowLog& log) : TestPlatform(ptyPorts(s)), log_(log) {
        clock = s.clock;
        usbFamilies.t1.reachable = s.usb.count(0) && s.usb.at(0);
        usbFamilies.t3.reachable = s.usb.count(1) && s.usb.at(1);
        for (const auto& [name, isDefault] : s.printers) systemPrinters.add(name, isDefault);
        systemPrinters.received = [this](const RecordingPrinters::Document& document) {
            log_.add(RecordingPrinters::describe(document));
        };
        // A busy port is held open here, as another program of the till
        // would hold it: the tool's open then fails on the port's lock.
        for (const auto& [n, how] : s.ports) {
            if (how != QLatin1String("busy")) continue;
            auto& holder = holders_[n] = newPort();
            holder->setCommPort(n);
            holder->setPortOpen(true);
        }
    }
    // A pause takes no time here. The bytes that reached each port before it
    // are written first, and those after it at the end of the step, so the
    // report shows the wire in order with the pauses.
    void pause(std::chrono::milliseconds length) override {
        writeWire();
        log_.add(QStringLiteral("pause %1 ms").arg(length.count()));
        paused = true;
    }
    bool paused = false;  // during the step that is running
    // "wire COM3: 1b 70 00": what came to each port since the last such line.
    // The bytes stay in what the port received for `read COM3` and the end.
    void writeWire() {
        for (auto& [n, pty] : ptys) {
            const QByteArray bytes = pty->received(30);
            pending_[n] += bytes;
            if (!bytes.isEmpty())
                log_.add(QStringLiteral("wire COM%1: %2").arg(n).arg(hexBytes(bytes)));
        }
    }
    bool openBrowser(const QString& browserPath, const QString& page) override {
        log_.add(QStringLiteral("browser %1 %2").arg(quoted(browserPath), quoted(page)));
        return true;
    }
    // What a captured port ("COM3") or a USB family ("T1") received since it
    // was last asked, taken away: "1b 40 ...", or "nothing".
    std::optional<QString> takeWire(const QString& name) {
        QByteArray bytes;
        if (name.startsWith(QLatin1String("COM")) && ptys.count(name.mid(3).toInt())) {
            const int n = name.mid(3).toInt();
            bytes = pending_[n] + ptys.at(n)->received();
            pending_.erase(n);
        } else if (name == QLatin1String("T1") || name == QLatin1String("T3")) {
            NotingFamily& family = name == QLatin1String("T1") ? usbFamilies.t1 : usbFamilies.t3;
            bytes = family.writes.join();
            family.writes.clear();
        } else {
            return std::nullopt;
        }
        return bytes.isEmpty() ? QStringLiteral("nothing") : hexBytes(bytes);
    }
    // "COM1: 1b 40 ..." for each captured port, "T1: ..." for each USB family
    // written to.
    QStringList wireReport() {
        QStringList lines;
        for (const auto& [n, pty] : ptys)
            lines << QStringLiteral("COM%1: %2")
                         .arg(n)
                         .arg(*takeWire(QStringLiteral("COM%1").arg(n)));
        for (const char* family : {"T1", "T3"})
            if (const QString bytes = *takeWire(QLatin1String(family));
                bytes != QLatin1String("nothing"))
                lines << QLatin1String(family) + QStringLiteral(": ") + bytes;
        return lines;
    }

  private:
    static std::set<int> ptyPorts(const Scenario& s) {
        std::set<int> ports;
        for (const auto& [n, how] : s.ports)
            if (how == QLatin1String("pty") || how == QLatin1String("busy")) ports.insert(n);
        return ports;
    }
    FlowLog& log_;
    std::map<int, std::unique_ptr<MSComm>> holders_;
    std::map<int, QByteArray> pending_;  // what the pauses took from each port
};

void print(const QStringList& lines) {
    for (const QString& line : lines)
        std::fputs((line + QLatin1Char('\n')).toUtf8().constData(), stdout);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: flowrun SCENARIO.flow\n");
        return 2;
    }
    QFile file(QString::fromLocal8Bit(argv[1]));
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "flowrun: cannot read %s\n", argv[1]);
        return 2;
    }
    Scenario scenario;
    try {
        scenario = parseScenario(file.readAll());
    } catch (const std::exception& e) {
        std::fprintf(stderr, "flowrun: %s: %s\n", argv[1], e.what());
        return 2;
    }
    alarm(120);  // a flow that hangs is killed, and its test fails
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    int qtArgc = 1;
    QApplication app(qtArgc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    installFonts();  // as the program does

    // Taken whole before the run moves to its data directory.
    const QString screenshots =
        qEnvironmentVariableIsEmpty("KALVO_SCREENSHOTS")
            ? QString()
            : QDir(qEnvironmentVariable("KALVO_SCREENSHOTS")).absolutePath();
    // A fresh directory, removed at the end; or the one KALVO_FLOW_DATA
    // names, kept, and with KALVO_FLOW_SEEDED=1 taken as it stands.
    const QString keptData = qEnvironmentVariable("KALVO_FLOW_DATA");
    std::optional<QTemporaryDir> freshDir;
    if (keptData.isEmpty()) freshDir.emplace();
    const QString dataPath = keptData.isEmpty() ? freshDir->path() : QDir(keptData).absolutePath();
    if (!QDir().mkpath(dataPath) || !QDir::setCurrent(dataPath)) {
        std::fprintf(stderr, "flowrun: cannot use %s\n", qPrintable(dataPath));
        return 2;
    }
    try {
        if (qEnvironmentVariable("KALVO_FLOW_SEEDED") != QLatin1String("1")) seed(scenario);
    } catch (const std::exception& e) {
        std::fprintf(stderr, "flowrun: %s\n", e.what());
        return 2;
    }

    FlowLog log;
    FlowPlatform platform(scenario, log);
    std::vector<int> printerPorts;
    for (const auto& [n, how] : scenario.ports)
        if (how == QLatin1String("vprinter")) printerPorts.push_back(n);
    std::unique_ptr<VirtualPrinters> printers;
    try {
        printers = std::make_unique<VirtualPrinters>(printerPorts);
    } catch (const std::exception& e) {
        std::fprintf(stderr, "flowrun: %s\n", e.what());
        return 2;
    }
    ScreenRegistry registry;
    registerScreens(registry);
    FlowInteraction ui(registry, scenario, log);
    Context ctx(platform, ui);
    ui.ctx = &ctx;
    const DirSnapshot before = snapshotDir(dataPath);

    // The end of the program, or of the script: nothing after it runs.
    ui.finish = [&](bool ended) {
        print(log.lines);
        print({QStringLiteral("-- records")});
        print(changedRecords(before, snapshotDir(dataPath)));
        print({QStringLiteral("-- wire")});
        print(platform.wireReport());
        print(printers->report());
        for (const Reply& r : ui.replies)
            print({QStringLiteral("unused dialog reply, line %1: %2")
                       .arg(r.line)
                       .arg(quoted(r.expected))});
        for (const QString& name : ui.stillLoaded())
            print({QStringLiteral("closed but still loaded: %1").arg(name)});
        if (!ended && ui.topmost())
            print({QStringLiteral("in front: %1").arg(ui.topmost()->objectName())});
        print({ended ? QStringLiteral("ended: yes") : QStringLiteral("ended: no")});
        std::fflush(stdout);
        QDir::setCurrent(QDir::tempPath());
        if (freshDir) QDir(dataPath).removeRecursively();
        platform.removeFiles();
        _exit(0);
    };
    StepRunner runner(scenario, ui, log, screenshots);
    runner.wire = [&platform](const QString& name) { return platform.takeWire(name); };
    runner.afterStep = [&platform] {
        if (!platform.paused) return;
        platform.writeWire();
        platform.paused = false;
    };
    runner.begin();
    return QApplication::exec();
}
