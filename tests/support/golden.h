#pragma once
// Golden files live in tests/<folder>/golden/<name>. A missing one fails the
// test; it is written only when KALVO_WRITE_GOLDEN is set, and the test still
// fails then, so that somebody reads it before keeping it.
#include <QByteArray>
#include <QString>

#include "print/job.h"

// The golden file's bytes, empty when it is missing.
QByteArray golden(const QString& folder, const QString& name);
// Empty when actual equals the golden file, else why not.
QString goldenMismatch(const QString& folder, const QString& name, const QByteArray& actual);
// A job as the golden files hold it: one write a line, its kind first
// (D direct, T translated, R raw, + when events run after it), then its bytes.
QByteArray describeJob(const Job& job);
