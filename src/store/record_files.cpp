#include "store/record_files.h"

#include "store/fixed_string.h"
#include "store/record_store.h"
#include "store/records.h"

namespace {
const QByteArray marker = QByteArrayLiteral("#INIT#");
const QByteArray blank(files::recordLength, ' ');

void putBlanks(RecordStore& store, int fileNumber, int first, int last) {
    for (int n = first; n <= last; ++n) store.put(fileNumber, n, blank);
}

// Closes the number and opens the file on it; without its marker, writes the
// head to record 1 and blanks to records 2 to last. True when it did.
bool openMarked(RecordStore& store, int number, const char* name, const QByteArray& head,
                int last) {
    store.close(number);
    store.open(number, QString::fromLatin1(name), files::recordLength);
    if (hasMarker(store.get(number, 1))) return false;
    store.put(number, 1, head);
    putBlanks(store, number, 2, last);
    return true;
}
}  // namespace

QByteArray markerDate(const QDate& today) {
    return today.toString(QStringLiteral("MM-dd-yyyy")).toLatin1();
}

bool hasMarker(QByteArrayView record) {
    return record.startsWith(marker);
}

void ouvre_fich142(RecordStore& store, const QDate& today) {
    openMarked(store, files::main, files::mainName, marker + markerDate(today), 201);
}

void ouvre_perifx(RecordStore& store, const QDate& today) {
    if (!openMarked(store, files::networkTill, files::networkTillName, marker + markerDate(today),
                    2000))
        return;
    // The list below is only walked: what is copied is records 1 to 16 of
    // file 20, by pass number, as the sales program expects the file to hold.
    static const int walked[16] = {81,  27,  97,  98, 70, 99, 697, 691,
                                   692, 693, 694, 24, 41, 84, 22,  19};
    for (int pass = 1; pass <= 16; ++pass) {
        [[maybe_unused]] const int listed = walked[pass - 1];
        store.put(files::networkTill, pass, store.get(files::sales, pass));
    }
    for (int n = 700; n <= 712; ++n) store.put(files::networkTill, n, store.get(files::sales, n));
}

void ouvre_souvprt(RecordStore& store, int port) {
    store.close(files::port);
    store.open(files::port, QStringLiteral("Souvprt%1.wdo").arg(port), files::recordLength);
    if (store.size(files::port) >= files::recordLength) return;
    putBlanks(store, files::port, 1, 200);
    store.put(files::port, 1, "9600,n,8,1");
    // "Imp Série : " in the file's single-byte code page.
    store.put(files::port, 2, QByteArray("Imp S\xE9rie : ") + QByteArray::number(port));
}

void ouvre_imprc5(RecordStore& store) {
    openMarked(store, files::sales, files::kitchenName, marker, 1001);
}
