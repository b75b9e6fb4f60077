// The key and value table on any content (a head count of any value, entries
// of any bytes): a key written can be read back, whatever stood there, and
// every other entry stays as it was.
#include <QtEndian>
#include <cstdint>

#include "data_dir.h"
#include "store/codec.h"
#include "store/param_table.h"
#include "store/record_store.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    enterScratchDirectory();
    return 0;
}

// The input: one byte of key length, the key, then the file.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) return 0;
    const size_t keyLength = qMin<size_t>(data[0] % 32, size - 1);
    const QString key = codec::fromBytes(
        QByteArrayView(reinterpret_cast<const char*>(data + 1), qsizetype(keyLength)));
    // Sixteen records walk every path; more only make each read longer.
    QByteArray content(reinterpret_cast<const char*>(data + 1 + keyLength),
                       qsizetype(qMin<size_t>(size - 1 - keyLength, 16 * 144)));
    // A count that a table may have but that runs far beyond the file makes
    // each read walk up to 65,535 empty records: brought to a few records
    // beyond the end, which is the same path. Garbled counts stay.
    if (content.size() > 110) {
        content.append(qMax<qsizetype>(0, 114 - content.size()), '\0');  // the count whole
        const qint32 count = qFromLittleEndian<qint32>(content.constData() + 110);
        const qint32 near = qint32(content.size() / 144) + 4;
        if (count > near && count <= 65535)
            qToLittleEndian<qint32>(count % near, content.data() + 110);
    }
    writeFile("WFICP_IA.WDO", content);
    RecordStore store;
    lit_param(store, key);
    lit_param(store, QStringLiteral("NUM_POSTE"));
    ecrit_param(store, key, QStringLiteral("valeur écrite"));
    expect(lit_param(store, key) == QStringLiteral("valeur écrite"));
    const QByteArray after = readFile("WFICP_IA.WDO");
    expect(after.size() % param_layout::recordLength == 0 || after.size() == content.size());
    return 0;
}
