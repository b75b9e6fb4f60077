// The printer code strings on any record and any field: the three layouts
// read and write back to themselves, and the bytes of a slot fail only by
// their Failure (a value above 255).
#include <cstdint>

#include "data_dir.h"
#include "print/code_string.h"
#include "store/failure.h"

namespace {
void layout(QByteArrayView record, CodeLayout kind, int count) {
    const QStringList read = readCodeFields(record, kind, count);
    const QByteArray written = writeCodeFields(record, kind, read);
    expect(written.size() == 20);
    if (kind == CodeLayout::Packed && record.size() >= 20)
        expect(written.mid(18) == record.sliced(18, 2).toByteArray());  // 19 and 20 untouched
    const QStringList again = readCodeFields(written, kind, count);
    expect(readCodeFields(writeCodeFields(written, kind, again), kind, count) == again);
    try {
        codeBytes(read);
    } catch (const Failure&) {
    }
    const QStringList pieces = cutPieces(read.mid(0, 5));  // the cut has five fields
    expect(pieces.size() == 6 && pieces[5].isEmpty() && !isBlankPiece(pieces[5]));
    for (const QString& piece : pieces) {
        try {
            if (!isBlankPiece(piece)) codeByte(piece);
        } catch (const Failure&) {
        }
    }
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArrayView record(reinterpret_cast<const char*>(data), qsizetype(size));
    layout(record, CodeLayout::Packed, 6);
    layout(record, CodeLayout::Separated, 5);
    const QString drawer = readDrawerField(record);
    expect(writeDrawerField(drawer).size() == 20);
    expect(writeDrawerField(QString::fromLatin1(record.data(), record.size())).size() == 20);
    return 0;
}
