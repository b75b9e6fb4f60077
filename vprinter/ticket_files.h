#pragma once
// Names of the files written for each sheet.
#include <QString>

// "out/ticket.png" and 3 give "out/ticket-3.png".
inline QString numberedPath(const QString& base, int number) {
    const qsizetype dot = base.lastIndexOf(u'.');
    const qsizetype slash = base.lastIndexOf(u'/');
    if (dot <= slash + 1) return base + QStringLiteral("-%1").arg(number);
    return base.left(dot) + QStringLiteral("-%1").arg(number) + base.mid(dot);
}
