// A record file opened on any content, as the sales program or a cut might
// leave it: a file with its marker (a port file: at least one record) is
// left byte for byte; any other is made again, and then holds what a first
// start in an empty directory makes, followed by what lay beyond it.
#include <QDate>
#include <cstdint>
#include <functional>

#include "data_dir.h"
#include "store/failure.h"
#include "store/record_files.h"
#include "store/record_store.h"

namespace {
const QDate today(2026, 11, 16);

struct Kind {
    const char* name;
    std::function<void(RecordStore&)> open;
    bool markedByLength;  // the port file: told by its length alone
};

const Kind kinds[] = {
    {"WFICH142.WDO", [](RecordStore& s) { ouvre_fich142(s, today); }, false},
    // On a network till file 20 is not open yet: the copy fails.
    {"w_perifx.wdo", [](RecordStore& s) { ouvre_perifx(s, today); }, false},
    {"w_perifx.wdo",
     [](RecordStore& s) {
         s.open(20, QStringLiteral("w_cai020.wdo"), 20);
         ouvre_perifx(s, today);
     },
     false},
    {"Souvprt7.wdo", [](RecordStore& s) { ouvre_souvprt(s, 7); }, true},
    {"w_imprc5.wdo", [](RecordStore& s) { ouvre_imprc5(s); }, false},
};

QByteArray openedOn(const Kind& kind, const QByteArray& content) {
    writeFile(kind.name, content);
    RecordStore store;
    try {
        kind.open(store);
    } catch (const Failure&) {
    }
    store.closeAll();
    return readFile(kind.name);
}
}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    enterScratchDirectory();
    writeFile("w_cai020.wdo", QByteArray("sales program's record 1").repeated(40));
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) return 0;
    const Kind& kind = kinds[data[0] % std::size(kinds)];
    const QByteArray content(reinterpret_cast<const char*>(data + 1), qsizetype(size - 1));
    const QByteArray after = openedOn(kind, content);
    const bool kept = kind.markedByLength ? content.size() >= 20 : hasMarker(content.left(20));
    if (kept) {
        expect(after == content);
        return 0;
    }
    const QByteArray made = openedOn(kind, QByteArray());
    expect(after.left(made.size()) == made);
    expect(after.mid(made.size()) == content.mid(made.size()));
    return 0;
}
