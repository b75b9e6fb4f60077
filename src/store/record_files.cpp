#include "store/record_files.h"

#include "store/failure.h"
#include "store/fixed_string.h"
#include "store/record_store.h"
#include "store/records.h"

// A file is made by few writes, each of whole records, and its marker (or,
// for a port file, its first record) comes with the last one: a program
// killed halfway leaves a file that the next opening makes again, and the
// bytes of a finished file are the same whatever cut came before.
namespace {
const QByteArray marker = QByteArrayLiteral("#INIT#");
const QByteArray blank(files::recordLength, ' ');

// Records 1 to last of a file being made, blank, as one run of bytes.
QByteArray blankRecords(int last) {
    return blank.repeated(last);
}

void setRecord(QByteArray& run, int record, QByteArrayView bytes) {
    run.replace(qsizetype(record - 1) * files::recordLength, files::recordLength,
                FixedString(files::recordLength, bytes.toByteArray()).bytes());
}

// Writes records 2 to the end of the run in one write, then record 1.
void writeMarkedLast(RecordStore& store, int number, const QByteArray& run) {
    store.putRecords(number, 2, QByteArrayView(run).sliced(files::recordLength));
    store.put(number, 1, QByteArrayView(run).first(files::recordLength));
}

// Closes the number and opens the file on it; true when it has no marker.
bool openUnmarked(RecordStore& store, int number, const char* name) {
    store.close(number);
    store.open(number, QString::fromLatin1(name), files::recordLength);
    return !hasMarker(store.get(number, 1));
}

void makeMarked(RecordStore& store, int number, const char* name, const QByteArray& head,
                int last) {
    if (!openUnmarked(store, number, name)) return;
    QByteArray run = blankRecords(last);
    setRecord(run, 1, head);
    writeMarkedLast(store, number, run);
}
}  // namespace

QByteArray markerDate(const QDate& today) {
    return today.toString(QStringLiteral("MM-dd-yyyy")).toLatin1();
}

bool hasMarker(QByteArrayView record) {
    return record.startsWith(marker);
}

void ouvre_fich142(RecordStore& store, const QDate& today) {
    makeMarked(store, files::main, files::mainName, marker + markerDate(today), 201);
}

void ouvre_perifx(RecordStore& store, const QDate& today) {
    if (!openUnmarked(store, files::networkTill, files::networkTillName)) return;
    QByteArray initial = blankRecords(2000);
    setRecord(initial, 1, marker + markerDate(today));
    QByteArray run = initial;
    // The list below is only walked: what is copied is records 1 to 16 of
    // file 20, by pass number, as the sales program expects the file to hold;
    // record 1 of file 20 takes the marker's place.
    static const int walked[16] = {81,  27,  97,  98, 70, 99, 697, 691,
                                   692, 693, 694, 24, 41, 84, 22,  19};
    try {
        for (int pass = 1; pass <= 16; ++pass) {
            [[maybe_unused]] const int listed = walked[pass - 1];
            setRecord(run, pass, store.get(files::sales, pass));
        }
        for (int n = 700; n <= 712; ++n) setRecord(run, n, store.get(files::sales, n));
    } catch (const Failure&) {
        // File 20 is not open (the start-up of a network till): the file
        // keeps its marker and blank records, and the failure goes on up.
        writeMarkedLast(store, files::networkTill, initial);
        throw;
    }
    writeMarkedLast(store, files::networkTill, run);
}

void ouvre_souvprt(RecordStore& store, int port) {
    store.close(files::port);
    store.open(files::port, QStringLiteral("Souvprt%1.wdo").arg(port), files::recordLength);
    if (store.size(files::port) >= files::recordLength) return;
    // Told by its length alone: the whole file goes in one write, so that it
    // is either still short or complete.
    QByteArray run = blankRecords(200);
    setRecord(run, 1, "9600,n,8,1");
    // "Imp Série : " in the file's single-byte code page.
    setRecord(run, 2, QByteArray("Imp S\xE9rie : ") + QByteArray::number(port));
    store.putRecords(files::port, 1, run);
}

void ouvre_imprc5(RecordStore& store) {
    makeMarked(store, files::sales, files::kitchenName, marker, 1001);
}
