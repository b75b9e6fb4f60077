#include "strace_log.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <map>
#include <stdexcept>

namespace {
QByteArray fromHexEscapes(const QString& text) {  // "\x23\x49..."
    QByteArray hex = text.toLatin1();
    hex.replace("\\x", "");
    return QByteArray::fromHex(hex);
}
}  // namespace

std::vector<LoggedWrite> readLoggedWrites(const QString& logPath) {
    QFile log(logPath);
    if (!log.open(QIODevice::ReadOnly)) throw std::runtime_error("no strace log");
    // "1234 lseek(5</dir/WFICH142.WDO>, 3880, SEEK_SET) = 3880"
    static const QRegularExpression seek(
        QString::fromLatin1(R"(^(\d+) +lseek\((\d+)<([^>]*)>, (\d+), SEEK_SET\) = (\d+))"));
    // "1234 write(5</dir/WFICH142.WDO>, "\x23...", 20) = 20", and pwrite64 with its offset
    static const QRegularExpression write(QString::fromLatin1(
        R"re(^(\d+) +(write|pwrite64)\((\d+)<([^>]*)>, "((?:\\x[0-9a-f]{2})*)"(\.\.\.)?, (\d+)(?:, (\d+))?\) = (\d+))re"));
    std::map<QString, qint64> position;  // "pid fd" -> offset
    std::vector<LoggedWrite> writes;
    while (!log.atEnd()) {
        const QString line = QString::fromLatin1(log.readLine());
        if (const auto m = seek.match(line); m.hasMatch()) {
            position[m.captured(1) + ' ' + m.captured(2)] = m.captured(5).toLongLong();
            continue;
        }
        const auto m = write.match(line);
        if (!m.hasMatch()) continue;
        if (!m.captured(6).isEmpty()) throw std::runtime_error("strace cut a write's bytes");
        LoggedWrite w;
        w.file = QFileInfo(QString::fromUtf8(fromHexEscapes(m.captured(4)))).fileName();
        w.bytes = fromHexEscapes(m.captured(5)).left(m.captured(9).toLongLong());
        w.positioned = m.captured(2) == QLatin1String("pwrite64");
        qint64& at = position[m.captured(1) + ' ' + m.captured(3)];
        w.offset = w.positioned ? m.captured(8).toLongLong() : at;
        if (!w.positioned) at += w.bytes.size();
        writes.push_back(w);
    }
    return writes;
}
