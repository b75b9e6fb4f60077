#pragma once
// The record file fuzzers work on real files, as the tool does: one scratch
// data directory for the whole run (in memory when /dev/shm is there), made
// the current directory, and each input written as a file before it is read.
#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <cstdlib>

inline void enterScratchDirectory() {
    static QTemporaryDir dir(QDir("/dev/shm").exists()
                                 ? QStringLiteral("/dev/shm/kalvo-fuzz-XXXXXX")
                                 : QDir::tempPath() + "/kalvo-fuzz-XXXXXX");
    if (!dir.isValid() || !QDir::setCurrent(dir.path())) std::abort();
}

inline void writeFile(const char* name, const QByteArray& content) {
    QFile f(QString::fromLatin1(name));
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate) || f.write(content) != content.size())
        std::abort();
}

inline QByteArray readFile(const char* name) {
    QFile f(QString::fromLatin1(name));
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

// A broken promise of the code under test: a crash that libFuzzer reports.
inline void expect(bool condition) {
    if (!condition) __builtin_trap();
}
