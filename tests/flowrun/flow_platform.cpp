#include "flow_platform.h"

#include <QDir>
#include <QFile>
#include <cstdlib>

#include "file_diff.h"
#include "print/qt_mscomm.h"
#include "print/usb_family.h"

namespace {

class RecordingFamily : public UsbFamily {
  public:
    explicit RecordingFamily(bool reachable) : reachable_(reachable) {}
    qint16 open() override { return reachable_ ? 1 : 0; }
    qint32 write(const QByteArray& bytes) override {
        received += bytes;
        return qint32(bytes.size());
    }
    void close() override {}
    QByteArray received;

  private:
    bool reachable_;
};

}  // namespace

class RecordingUsb : public UsbLibraries {
  public:
    explicit RecordingUsb(const std::map<int, bool>& reachable)
        : t1(reachable.count(0) && reachable.at(0)), t3(reachable.count(1) && reachable.at(1)) {}
    UsbFamily& family(qint16 famille_usb) override { return famille_usb == 0 ? t1 : t3; }
    RecordingFamily t1, t3;
};

FlowPlatform::FlowPlatform(const Scenario& scenario, FlowLog& log)
    : clock_(scenario.clock), log_(log), usb_(std::make_unique<RecordingUsb>(scenario.usb)) {
    // Every port number gets a link: a pty for the scenario's ports, and a
    // link to nothing for the others, so no port of this machine is touched.
    const QString dosdevices = winePrefix_.filePath(QStringLiteral("dosdevices"));
    QDir().mkpath(dosdevices);
    for (int n = 1; n <= 12; ++n) {
        // A directory: it exists, so no fallback to /dev/ttyS is tried, and it
        // cannot be opened as a port.
        QString target = winePrefix_.path();
        const auto it = scenario.ports.find(n);
        if (it != scenario.ports.end() && it->second == QLatin1String("pty")) {
            ports_[n] = std::make_unique<PtyCapture>();
            target = ports_[n]->slavePath();
        }
        QFile::link(target, dosdevices + QStringLiteral("/com%1").arg(n));
    }
    qputenv("WINEPREFIX", winePrefix_.path().toLocal8Bit());
}

FlowPlatform::~FlowPlatform() = default;

std::unique_ptr<MSComm> FlowPlatform::newPort() {
    return std::make_unique<QtMSComm>();
}

UsbLibraries& FlowPlatform::usb() {
    return *usb_;
}

bool FlowPlatform::openBrowser(const QString& browserPath, const QString& page) {
    log_.add(QStringLiteral("browser %1 %2").arg(quoted(browserPath), quoted(page)));
    return true;
}

QStringList FlowPlatform::wireReport() {
    QStringList lines;
    for (auto& [n, pty] : ports_) {
        const QByteArray bytes = pty->received();
        lines << QStringLiteral("COM%1: %2")
                     .arg(n)
                     .arg(bytes.isEmpty() ? "nothing" : hexBytes(bytes));
    }
    for (const auto& [name, family] : {std::pair{"T1", &usb_->t1}, std::pair{"T3", &usb_->t3}})
        if (!family->received.isEmpty())
            lines << QStringLiteral("%1: %2").arg(QLatin1String(name), hexBytes(family->received));
    return lines;
}
