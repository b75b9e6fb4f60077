#include "drawer/drawer_pulse.h"

#include <QRegularExpression>
#include <cmath>
#include <limits>

#include "print/mscomm.h"
#include "shell/context.h"
#include "store/codec.h"
#include "store/failure.h"
#include "store/numeric.h"

namespace {

using std::chrono::milliseconds;

constexpr int groupCount = 5;
constexpr int groupWidth = 3;

// A wait of more than a century never ends in practice; it is cut there so
// that the clock's arithmetic cannot overflow.
constexpr milliseconds longestWait = std::chrono::hours(24) * 36500;

// A group as a whole number, as the suite converts text to a whole number:
// blanks around it, a sign, digits and a decimal part (rounded half to even)
// are taken; anything else is no number. Then the number must be a byte.
char groupByte(const QString& group) {
    static const QRegularExpression wholeNumber(
        QStringLiteral("^ *[+-]?(\\d+\\.?\\d*|\\.\\d+) *$"));
    if (!wholeNumber.match(group).hasMatch())
        throw Failure(QStringLiteral("Incompatibilité de type : %1").arg(group));
    return char(toByte(group.trimmed().toDouble()));
}

QByteArray drawerString(const QByteArray& record) {
    QByteArray bytes;
    for (int i = 0; i < groupCount; ++i) {
        const QByteArray group = record.mid(i * groupWidth, groupWidth);
        if (group != "   ") bytes.append(groupByte(codec::fromBytes(group)));
    }
    return bytes;
}

milliseconds waitOf(const QByteArray& record) {
    const double seconds = numericValue(record) / 1000;
    if (!(std::fabs(seconds) <= std::numeric_limits<float>::max()))
        throw Failure(QStringLiteral("Dépassement de capacité"));
    const double ms = double(float(seconds)) * 1000;
    if (ms <= 0) return milliseconds(0);
    if (ms >= double(longestWait.count())) return longestWait;
    return milliseconds(std::llround(ms));
}

}  // namespace

DrawerPulse composeDrawerPulse(const RecordReader& record) {
    DrawerPulse pulse;
    pulse.port = int(numericValue(record(rec::drawerPort).mid(2, 2)));
    pulse.wait = waitOf(record(rec::drawerPulseMs));
    // Record 192 closes the relay, which opens the drawer; 193 releases it.
    pulse.opening = drawerString(record(rec::drawerClose));
    pulse.closing = drawerString(record(rec::drawerOpen));
    pulse.settings = codec::fromBytes(record(rec::drawerSettings)).trimmed();
    return pulse;
}

void fireDrawerPulse(MSComm& port, const DrawerPulse& pulse, Platform& platform) {
    port.setCommPort(pulse.port);
    port.setPortOpen(true);
    port.setSettings(pulse.settings);
    port.output(pulse.opening);
    // The relay closes when the bytes reach it, not when they are handed over:
    // the wait starts once they have left.
    port.drain();
    if (pulse.wait.count() > 0) platform.pause(pulse.wait);
    port.output(pulse.closing);
    port.setPortOpen(false);
}
