#pragma once
// A failure of a statement: a file that cannot be read, a port that refuses,
// a value that does not fit. Every failure the user can cause is one of these,
// caught where the screen's handler stands (or swallowed by a skipping step).
#include <QString>
#include <functional>
#include <stdexcept>

struct Failure : std::runtime_error {
    explicit Failure(const QString& what) : std::runtime_error(what.toStdString()) {}
};

// Runs one statement in the mode where a failing statement is skipped: the
// failure is swallowed and the caller goes on with its next statement.
inline void skip(const std::function<void()>& statement) {
    try {
        statement();
    } catch (const Failure&) {
    }
}
