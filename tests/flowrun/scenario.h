#pragma once
// A flow scenario: the data directory to seed, the ports and the clock, the
// prompt dialog's scripted replies, and the steps a user takes.
#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QStringList>
#include <deque>
#include <map>
#include <vector>

#include "support/test_interaction.h"

struct SeedRecord {
    QString file;
    int number = 0;
    QByteArray bytes;
};

struct SeedFile {
    QString file;
    QByteArray bytes;
};

struct Step {
    int line = 0;
    QString verb;      // start, open, fill, click, ... (the README's table of steps)
    QStringList args;  // the words after the verb, unquoted
};

struct Scenario {
    QDateTime clock = QDateTime(QDate(2026, 11, 16), QTime(10, 20, 30));
    std::vector<std::pair<QString, QString>> params;  // in order of writing
    std::vector<SeedFile> files;
    std::vector<SeedRecord> records;
    std::map<int, QString> ports;  // port number -> "pty", "busy", "missing" or "vprinter"
    std::map<int, bool> usb;       // family (0 T1, 1 T3) -> reachable
    QStringList absent;            // screens taken out of this run's build
    std::deque<Reply> dialogs;     // expected: msg_dialogue as the caller sets it
    // The system's printers in their order; true for the default one.
    std::vector<std::pair<QString, bool>> printers;
    std::vector<Step> steps;
    bool manualTimers = false;  // named timers tick only at a `timer` step
};

// Reads a scenario; throws std::runtime_error with the line on a bad one.
Scenario parseScenario(const QByteArray& text);

// Record length of a shared file by its name on disk.
int recordLengthOf(const QString& fileName);
