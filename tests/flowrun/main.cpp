// flowrun: runs one flow scenario through the real screens and prints what
// happened as stable text (see README.md in this folder).
#include <unistd.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <cstdio>

#include "app/screens.h"
#include "file_diff.h"
#include "flow_interaction.h"
#include "scenario.h"
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

// The test platform, with the scenario's ports and USB families, whose
// browser starts and is written to the report.
class FlowPlatform : public TestPlatform {
  public:
    FlowPlatform(const Scenario& s, FlowLog& log) : TestPlatform(ptyPorts(s)), log_(log) {
        clock = s.clock;
        usbFamilies.t1.reachable = s.usb.count(0) && s.usb.at(0);
        usbFamilies.t3.reachable = s.usb.count(1) && s.usb.at(1);
    }
    bool openBrowser(const QString& browserPath, const QString& page) override {
        log_.add(QStringLiteral("browser %1 %2").arg(quoted(browserPath), quoted(page)));
        return true;
    }
    // "COM1: 1b 40 ..." for each captured port, "T1: ..." for each USB family
    // written to.
    QStringList wireReport() {
        QStringList lines;
        for (auto& [n, pty] : ptys) {
            const QByteArray bytes = pty->received();
            lines << QStringLiteral("COM%1: %2")
                         .arg(n)
                         .arg(bytes.isEmpty() ? "nothing" : hexBytes(bytes));
        }
        for (const auto& [name, family] :
             {std::pair{"T1", &usbFamilies.t1}, std::pair{"T3", &usbFamilies.t3}})
            if (const QByteArray bytes = family->writes.join(); !bytes.isEmpty())
                lines << QStringLiteral("%1: %2").arg(QLatin1String(name), hexBytes(bytes));
        return lines;
    }

  private:
    static std::set<int> ptyPorts(const Scenario& s) {
        std::set<int> ports;
        for (const auto& [n, how] : s.ports)
            if (how == QLatin1String("pty")) ports.insert(n);
        return ports;
    }
    FlowLog& log_;
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

    QTemporaryDir dataDir;
    QDir::setCurrent(dataDir.path());
    try {
        seed(scenario);
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
    const DirSnapshot before = snapshotDir(dataDir.path());

    // The end of the program, or of the script: nothing after it runs.
    ui.finish = [&](bool ended) {
        print(log.lines);
        print({QStringLiteral("-- records")});
        print(changedRecords(before, snapshotDir(dataDir.path())));
        print({QStringLiteral("-- wire")});
        print(platform.wireReport());
        print(printers->report());
        for (const Reply& r : ui.replies)
            print({QStringLiteral("unused dialog reply, line %1: %2")
                       .arg(r.line)
                       .arg(quoted(r.expected))});
        if (!ended && ui.topmost())
            print({QStringLiteral("in front: %1").arg(ui.topmost()->objectName())});
        print({ended ? QStringLiteral("ended: yes") : QStringLiteral("ended: no")});
        std::fflush(stdout);
        QDir::setCurrent(QDir::tempPath());
        QDir(dataDir.path()).removeRecursively();
        platform.removeFiles();
        _exit(0);
    };
    StepRunner runner(scenario.steps, ui, log);
    runner.begin();
    return QApplication::exec();
}
