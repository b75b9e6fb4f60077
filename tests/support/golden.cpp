#include "support/golden.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {
QString goldenPath(const QString& folder, const QString& name) {
    return qEnvironmentVariable("KALVO_SOURCE_DIR") +
           QStringLiteral("/tests/%1/golden/%2").arg(folder, name);
}
}  // namespace

QByteArray golden(const QString& folder, const QString& name) {
    QFile f(goldenPath(folder, name));
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

QString goldenMismatch(const QString& folder, const QString& name, const QByteArray& actual) {
    const QString path = goldenPath(folder, name);
    if (!QFile::exists(path)) {
        QFile out(path);
        if (qEnvironmentVariableIsSet("KALVO_WRITE_GOLDEN") &&
            QDir().mkpath(QFileInfo(path).path()) && out.open(QIODevice::WriteOnly)) {
            out.write(actual);
            return QStringLiteral("golden file written, check it: ") + path;
        }
        return QStringLiteral("missing golden file ") + path;
    }
    if (golden(folder, name) == actual) return {};
    return QStringLiteral("differs from %1:\n%2").arg(path, QString::fromLatin1(actual));
}

QByteArray describeJob(const Job& job) {
    QByteArray out;
    for (const Write& w : job.writes) {
        out += w.how == Write::How::Direct ? 'D' : w.how == Write::How::Translated ? 'T' : 'R';
        if (w.letEventsRunAfter) out += '+';
        out += ' ' + w.bytes.toHex(' ') + '\n';
    }
    if (job.failed) out += "failed\n";
    return out;
}
