#pragma once
// A fresh empty directory made current for the length of a test.
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

class ScratchDir {
public:
    ScratchDir() : previous_(QDir::currentPath()) { QDir::setCurrent(dir_.path()); }
    ~ScratchDir() { QDir::setCurrent(previous_); }
    QString path() const { return dir_.path(); }
    static QByteArray read(const QString& name) {
        QFile f(name);
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }
    static void write(const QString& name, const QByteArray& bytes) {
        QFile f(name);
        if (f.open(QIODevice::WriteOnly | QIODevice::Truncate)) f.write(bytes);
    }

private:
    QTemporaryDir dir_;
    QString previous_;
};
