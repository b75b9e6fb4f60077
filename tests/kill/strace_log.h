#pragma once
// The writes to the data directory's files that strace logged
// (strace -f -y -xx -e trace=write,pwrite64,lseek), in the order they came.
#include <QByteArray>
#include <QString>
#include <vector>

struct LoggedWrite {
    QString file;  // the file's name, without its directory
    qint64 offset = 0;
    QByteArray bytes;
    bool positioned = false;  // pwrite64: its offset is its own, not the file's
};

// Throws std::runtime_error on a write whose bytes were cut from the log.
std::vector<LoggedWrite> readLoggedWrites(const QString& logPath);
