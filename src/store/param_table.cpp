#include "store/param_table.h"

#include <QtEndian>

#include "store/codec.h"
#include "store/fixed_string.h"
#include "store/record_store.h"
#include "store/records.h"

using namespace param_layout;

namespace {

void ouvre_param(RecordStore& store) {
    store.close(files::params);
    store.open(files::params, QString::fromLatin1(files::paramsName), recordLength);
}

// Closes the table whatever happens inside the operation.
struct ParamSession {
    RecordStore& store;
    explicit ParamSession(RecordStore& s) : store(s) { ouvre_param(store); }
    ~ParamSession() { store.close(files::params); }
};

QByteArray paddedKey(const QString& cle) {
    return FixedString(keyWidth, codec::toBytes(cle)).bytes();
}

qint32 countOf(const QByteArray& head) {
    return qFromLittleEndian<qint32>(head.constData() + countOffset);
}

void setCount(QByteArray& record, qint32 count) {
    qToLittleEndian<qint32>(count, record.data() + countOffset);
}

// The count as the loops may trust it. The head is followed as it stands, an
// entry that is not in the file reading as blank: a break between the head
// and the entry leaves a count one too high, and the sales program may keep
// a count ahead of its entries. Only a count that no table can have (negative,
// or above 65,535) is garbled; it counts as the entries that are there, so
// that a read never walks billions of empty records and a write lands just
// after the last entry instead of over the head or gigabytes away.
qint32 usableCount(RecordStore& store, qint32 count) {
    constexpr qint32 highestCount = 65535;
    if (count >= 0 && count <= highestCount) return count;
    return qint32(qMax<qint64>(0, store.size(files::params) / recordLength - 1));
}

QByteArray keyOf(const QByteArray& record) {
    return record.mid(keyOffset, keyWidth);
}

// The first entry of the count whose key is the key, 0 when none is. The
// entries that lie in the file are read; one beyond its end reads as zero
// bytes, which only a key of zero bytes matches, and then the first of them
// does. So a head whose count runs ahead of the file (a cut write, a
// garbled head) is not followed into thousands of empty reads.
qint32 findEntry(RecordStore& store, const QByteArray& key, qint32 count) {
    const qint64 inFile = (store.size(files::params) + recordLength - 1) / recordLength - 1;
    const qint32 read = qint32(qBound<qint64>(0, inFile, qint64(count)));
    for (qint32 i = 1; i <= read; ++i)
        if (keyOf(store.get(files::params, i + 1)) == key) return i;
    if (count > read && key.count('\0') == key.size()) return read + 1;
    return 0;
}

void setValue(QByteArray& record, const QString& valeur) {
    const QByteArray value = FixedString(valueWidth, codec::toBytes(valeur)).bytes();
    record.replace(0, valueWidth, value);
}

}  // namespace

QString lit_param(RecordStore& store, const QString& cle) {
    ParamSession session(store);
    const QByteArray key = paddedKey(cle);
    const qint32 count = usableCount(store, countOf(store.get(files::params, 1)));
    if (const qint32 i = findEntry(store, key, count))
        return codec::boxText(store.get(files::params, i + 1).left(valueWidth)).trimmed();
    return QString();
}

void ecrit_param(RecordStore& store, const QString& cle, const QString& valeur) {
    ParamSession session(store);
    const QByteArray key = paddedKey(cle);
    const qint32 count = usableCount(store, countOf(store.get(files::params, 1)));
    if (const qint32 i = findEntry(store, key, count)) {
        // The integers beside the value are the sales program's: kept.
        QByteArray record = store.get(files::params, i + 1);
        setValue(record, valeur);
        store.put(files::params, i + 1, record);
        return;
    }
    // A new entry: the head's count is raised and written before the entry.
    QByteArray head = store.get(files::params, 1);
    const qint32 newCount = usableCount(store, countOf(head)) + 1;
    setCount(head, newCount);
    store.put(files::params, 1, head);

    QByteArray entry(recordLength, '\0');
    setValue(entry, valeur);
    entry.replace(keyOffset, keyWidth, key);
    entry[recordLength - 1] = ' ';
    store.put(files::params, newCount + 1, entry);
}
