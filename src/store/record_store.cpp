#include "store/record_store.h"

#include <QFile>

#include "store/failure.h"

struct RecordStore::OpenFile {
    QString name;
    int recordLength = 0;
    std::unique_ptr<QFile> file;
};

RecordStore::RecordStore() = default;
RecordStore::~RecordStore() { closeAll(); }

void RecordStore::open(int fileNumber, const QString& name, int recordLength) {
    close(fileNumber);
    QString trimmed = name;
    while (trimmed.endsWith(QLatin1Char(' '))) trimmed.chop(1);
    auto entry = std::make_unique<OpenFile>();
    entry->name = trimmed;
    entry->recordLength = recordLength;
    entry->file = std::make_unique<QFile>(trimmed);
    // Unbuffered: each write goes to the system at once, each read comes from it.
    if (!entry->file->open(QIODevice::ReadWrite | QIODevice::Unbuffered))
        throw Failure(QStringLiteral("Impossible d'ouvrir %1").arg(trimmed));
    files_[fileNumber] = std::move(entry);
}

void RecordStore::close(int fileNumber) { files_.erase(fileNumber); }

void RecordStore::closeAll() { files_.clear(); }

bool RecordStore::isOpen(int fileNumber) const { return files_.count(fileNumber) != 0; }

const RecordStore::OpenFile& RecordStore::file(int fileNumber) const {
    auto it = files_.find(fileNumber);
    if (it == files_.end()) throw Failure(QStringLiteral("Fichier %1 non ouvert").arg(fileNumber));
    return *it->second;
}

QByteArray RecordStore::get(int fileNumber, int record) const {
    const OpenFile& f = file(fileNumber);
    if (record < 1) throw Failure(QStringLiteral("Numéro d'enregistrement incorrect"));
    QByteArray bytes(f.recordLength, '\0');
    const qint64 offset = qint64(record - 1) * f.recordLength;
    if (offset < f.file->size()) {
        if (!f.file->seek(offset)) throw Failure(QStringLiteral("Lecture impossible"));
        const qint64 got = f.file->read(bytes.data(), f.recordLength);
        if (got < 0) throw Failure(QStringLiteral("Lecture impossible"));
    }
    return bytes;
}

void RecordStore::put(int fileNumber, int record, QByteArrayView bytes) {
    const OpenFile& f = file(fileNumber);
    if (record < 1) throw Failure(QStringLiteral("Numéro d'enregistrement incorrect"));
    QByteArray out(f.recordLength, ' ');
    std::copy_n(bytes.data(), qMin<qsizetype>(bytes.size(), f.recordLength), out.data());
    writeAt(f, record, out);
}

void RecordStore::putRecords(int fileNumber, int first, QByteArrayView bytes) {
    const OpenFile& f = file(fileNumber);
    if (first < 1 || bytes.size() % f.recordLength != 0)
        throw Failure(QStringLiteral("Numéro d'enregistrement incorrect"));
    writeAt(f, first, bytes);
}

void RecordStore::writeAt(const OpenFile& f, int record, QByteArrayView bytes) {
    const qint64 offset = qint64(record - 1) * f.recordLength;
    if (!f.file->seek(offset) || f.file->write(bytes.data(), bytes.size()) != bytes.size())
        throw Failure(QStringLiteral("Écriture impossible dans %1").arg(f.name));
}

qint64 RecordStore::size(int fileNumber) const { return file(fileNumber).file->size(); }

int RecordStore::recordLength(int fileNumber) const { return file(fileNumber).recordLength; }

QString RecordStore::fileName(int fileNumber) const { return file(fileNumber).name; }
