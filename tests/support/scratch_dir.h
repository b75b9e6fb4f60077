#pragma once
// A fresh empty directory made current for the length of a test, with the
// files in it read and written whole. Header only: the store's tests use it
// without the rest of the support library.
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

class ScratchDir {
  public:
    ScratchDir() : previous_(QDir::currentPath()) { QDir::setCurrent(dir_.path()); }
    ~ScratchDir() { QDir::setCurrent(previous_); }
    ScratchDir(const ScratchDir&) = delete;
    ScratchDir& operator=(const ScratchDir&) = delete;

    QString path() const { return dir_.path(); }
    static QByteArray read(const QString& name) {
        QFile f(name);
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }
    static void write(const QString& name, const QByteArray& bytes) {
        QFile f(name);
        if (f.open(QIODevice::WriteOnly | QIODevice::Truncate)) f.write(bytes);
    }
    // Record n of a file as it stands on disk, "" beyond the end.
    static QByteArray record(const QString& name, int n, int length = 20) {
        return read(name).mid(qsizetype(n - 1) * length, length);
    }

  private:
    QTemporaryDir dir_;
    QString previous_;
};

// A record's text padded with blanks to the record's length.
inline QByteArray padded(const QByteArray& text, int length = 20) {
    return text.leftJustified(length, ' ');
}
