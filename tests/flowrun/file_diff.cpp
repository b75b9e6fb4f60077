#include "file_diff.h"

#include <QDir>
#include <QFile>

#include "report.h"
#include "scenario.h"

DirSnapshot snapshotDir(const QString& path) {
    DirSnapshot snapshot;
    const QDir dir(path);
    for (const QString& name : dir.entryList(QDir::Files | QDir::Hidden, QDir::Name)) {
        QFile f(dir.filePath(name));
        snapshot[name] = f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }
    return snapshot;
}

namespace {

QString recordText(const QByteArray& content, qsizetype offset, int length) {
    if (offset >= content.size()) return QStringLiteral("absent");
    return QLatin1Char('"') + escaped(content.mid(offset, length)) + QLatin1Char('"');
}

struct Change {
    int first = 0, last = 0;
    QString before, after;
};

QString lineOf(const QString& file, const Change& c) {
    const QString numbers = c.first == c.last ? QString::number(c.first)
                                              : QStringLiteral("%1-%2").arg(c.first).arg(c.last);
    return QStringLiteral("%1 %2: %3 -> %4").arg(file, numbers, c.before, c.after);
}

}  // namespace

QStringList changedRecords(const DirSnapshot& before, const DirSnapshot& after) {
    std::map<QString, int> names;
    for (const auto& [name, _] : before) names[name];
    for (const auto& [name, _] : after) names[name];
    QStringList lines;
    for (const auto& [name, _] : names) {
        const QByteArray old = before.count(name) ? before.at(name) : QByteArray();
        const QByteArray now = after.count(name) ? after.at(name) : QByteArray();
        if (old == now && before.count(name) == after.count(name)) continue;
        const int length = recordLengthOf(name);
        const qsizetype records = (qMax(old.size(), now.size()) + length - 1) / length;
        if (records == 0) {
            lines << QStringLiteral("%1: %2").arg(name,
                                                  after.count(name) ? "created empty" : "removed");
            continue;
        }
        Change run;
        for (qsizetype k = 0; k < records; ++k) {
            const qsizetype offset = k * length;
            if (old.mid(offset, length) == now.mid(offset, length) &&
                (offset < old.size()) == (offset < now.size()))
                continue;
            const Change c{int(k + 1), int(k + 1), recordText(old, offset, length),
                           recordText(now, offset, length)};
            if (run.first && run.last + 1 == c.first && run.before == c.before &&
                run.after == c.after) {
                run.last = c.last;
                continue;
            }
            if (run.first) lines << lineOf(name, run);
            run = c;
        }
        if (run.first) lines << lineOf(name, run);
    }
    return lines;
}
