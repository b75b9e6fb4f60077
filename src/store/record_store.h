#pragma once
// The fixed-record files shared with the sales program, kept under small file
// numbers. Every get reads the disk and every put writes through at its
// offset at once: nothing is cached and no file is ever rewritten whole, so a
// sales program running beside us sees each record as soon as it is put.
#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <map>
#include <memory>

class QFile;

class RecordStore {
public:
    RecordStore();
    ~RecordStore();
    RecordStore(const RecordStore&) = delete;
    RecordStore& operator=(const RecordStore&) = delete;

    // Closes the number first, then opens the file for reading and writing,
    // shared, creating it when it is missing. Trailing blanks of the name are
    // dropped, as the file system does. Throws Failure when it cannot be opened.
    void open(int fileNumber, const QString& name, int recordLength);
    void close(int fileNumber);  // a number that is not open is no failure
    void closeAll();
    bool isOpen(int fileNumber) const;

    // Record numbers start at 1. A get beyond the end returns what is there
    // followed by zero bytes, and the file does not grow. A put writes exactly
    // one record (the bytes padded with blanks or cut to the record length)
    // and extends the file when needed. Both throw Failure on a number that is
    // not open, a record number below 1 or a failing disk.
    QByteArray get(int fileNumber, int record) const;
    void put(int fileNumber, int record, QByteArrayView bytes);
    // Whole records from `first` on, in one write: the size of the bytes is a
    // multiple of the record length. A first initialisation writes its many
    // records so, and a kill leaves each of them before or after that write.
    void putRecords(int fileNumber, int first, QByteArrayView bytes);

    qint64 size(int fileNumber) const;  // throws Failure when not open
    int recordLength(int fileNumber) const;
    QString fileName(int fileNumber) const;

private:
    struct OpenFile;
    const OpenFile& file(int fileNumber) const;
    static void writeAt(const OpenFile& f, int record, QByteArrayView bytes);
    std::map<int, std::unique_ptr<OpenFile>> files_;
};
