// The ticket line file on any content: a file without its marker is made
// again as a first start makes it; each line reads into its fields and
// writes back to the same bytes (the filler byte aside).
#include <QDate>
#include <cstdint>

#include "data_dir.h"
#include "store/codec.h"
#include "store/failure.h"
#include "store/record_files.h"
#include "store/record_store.h"
#include "store/ticket_lines.h"

namespace {
constexpr int recordLength = 256;
const QDate today(2026, 11, 16);

QByteArray openedOn(const QByteArray& content) {
    writeFile("W_FE1032.WDO", content);
    RecordStore store;
    ouvre_fe1032(store, today);
    return readFile("W_FE1032.WDO");
}
}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    enterScratchDirectory();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray content(reinterpret_cast<const char*>(data), qsizetype(size));
    const QByteArray after = openedOn(content);
    if (hasMarker(content.left(200))) {
        expect(after == content);
    } else {
        const QByteArray made = openedOn(QByteArray());
        expect(after.left(made.size()) == made);
        expect(after.mid(made.size()) == content.mid(made.size()));
        writeFile("W_FE1032.WDO", content);
    }
    // Every line of what was given, as the standard ticket reads them.
    for (qsizetype at = 0; at < content.size(); at += recordLength) {
        QByteArray record = content.mid(at, recordLength);
        record.append(recordLength - record.size(), '\0');
        const TicketLine line = TicketLine::fromRecord(record);
        expect(codec::boxText(line.texte).trimmed().size() <= 200);
        expect(codec::boxText(line.police).trimmed().size() <= 27);
        record[recordLength - 1] = ' ';
        expect(line.toRecord() == record);
    }
    return 0;
}
