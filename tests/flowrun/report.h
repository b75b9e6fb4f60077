#pragma once
// The lines of a flow's report, in the order things happened, and the ways
// the report writes texts and bytes.
#include <QByteArray>
#include <QString>
#include <QStringList>

struct FlowLog {
    QStringList lines;
    void add(const QString& line) { lines << line; }
};

// "text" with the report's escapes, from screen text: \" \\ and \xNN for a
// control character; accented letters stand as they are (the report is UTF-8).
QString quoted(const QString& text);
// Bytes as text: printable ASCII stands, the rest is \xNN; " \ and < are
// escaped with a backslash; a run of 6 or more equal bytes is <count*byte>.
QString escaped(const QByteArray& bytes);
// "1b 40 0a".
QString hexBytes(const QByteArray& bytes);
