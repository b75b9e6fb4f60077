// The switch table on any content: every switch reads, a switch set reads
// back its value, and what is written is read again as it was.
#include <QDateTime>
#include <cstdint>

#include "data_dir.h"
#include "store/record_files.h"
#include "store/record_store.h"
#include "store/switch_table.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    enterScratchDirectory();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray content(reinterpret_cast<const char*>(data), qsizetype(size));
    const bool marked = hasMarker(content.left(24));
    writeFile("switch63.wdo", content);
    const QDateTime now(QDate(2026, 11, 16), QTime(10, 20, 30));
    RecordStore store;
    QByteArray switchs = lit_switch(store, now);
    for (int n = 0; n < 500; ++n) val_switch(switchs, n);
    const int n = size ? data[0] * 2 % 500 : 44;
    const int value = size > 1 ? int(data[1] % 109) - 9 : 1;  // -9 to 99
    pose_switch(switchs, n, value);
    expect(val_switch(switchs, n) == value);
    ecrit_switch(store, now, switchs);
    expect(lit_switch(store, now) == switchs);
    const QByteArray after = readFile("switch63.wdo");
    QByteArray head = content.left(24);
    head.append(24 - head.size(), '\0');         // a short file reads as zero bytes beyond its end
    if (marked) expect(after.left(24) == head);  // a head with its marker stays
    expect(after.mid(1024) == content.mid(1024));
    return 0;
}
