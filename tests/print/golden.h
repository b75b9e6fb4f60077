#pragma once
// Golden files live in tests/print/golden. A missing one reads as an empty
// array, which no ticket matches, and the tests say so: it is never written
// by a test.
#include <QByteArray>
#include <QFile>
#include <QString>

inline QByteArray golden(const QString& name) {
    QFile file(QStringLiteral(KALVO_GOLDEN_DIR "/") + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
