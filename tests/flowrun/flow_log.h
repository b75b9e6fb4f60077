#pragma once
// The lines of a flow's report, in the order things happened.
#include <QString>
#include <QStringList>

struct FlowLog {
    QStringList lines;
    void add(const QString& line) { lines << line; }
};

// "text" with the report's escapes, from screen text (Windows-1252 bytes).
QString quoted(const QString& text);
