#include "store/ticket_lines.h"

#include <QtEndian>
#include <cstring>

#include "store/fixed_string.h"
#include "store/record_files.h"
#include "store/record_store.h"
#include "store/records.h"

namespace {
constexpr int recordLength = 256;
constexpr int textWidth = 200;
constexpr int fontOffset = 228;
constexpr int fontWidth = 27;

qint32 intAt(QByteArrayView r, int offset) { return qFromLittleEndian<qint32>(r.data() + offset); }
void putInt(QByteArray& r, int offset, qint32 v) { qToLittleEndian<qint32>(v, r.data() + offset); }
}  // namespace

TicketLine TicketLine::fromRecord(QByteArrayView r) {
    TicketLine line;
    line.texte = r.first(textWidth).toByteArray();
    line.pos_x = intAt(r, 200);
    line.pos_y = intAt(r, 204);
    line.gras = intAt(r, 208);
    line.italique = intAt(r, 212);
    line.souligne = intAt(r, 216);
    line.reserve = intAt(r, 220);
    const quint32 bits = qFromLittleEndian<quint32>(r.data() + 224);
    std::memcpy(&line.taille, &bits, sizeof bits);
    line.police = r.sliced(fontOffset, fontWidth).toByteArray();
    return line;
}

QByteArray TicketLine::toRecord() const {
    QByteArray r(recordLength, ' ');
    r.replace(0, textWidth, FixedString(textWidth, texte).bytes());
    putInt(r, 200, pos_x);
    putInt(r, 204, pos_y);
    putInt(r, 208, gras);
    putInt(r, 212, italique);
    putInt(r, 216, souligne);
    putInt(r, 220, reserve);
    quint32 bits;
    std::memcpy(&bits, &taille, sizeof bits);
    qToLittleEndian<quint32>(bits, r.data() + 224);
    r.replace(fontOffset, fontWidth, FixedString(fontWidth, police).bytes());
    return r;
}

void ouvre_fe1032(RecordStore& store, const QDate& today) {
    store.close(files::ticketLines);
    store.open(files::ticketLines, QString::fromLatin1(files::ticketLinesName), recordLength);
    if (hasMarker(store.get(files::ticketLines, 1))) return;
    // Lines 2 to 102 in one write, then the head with its marker: a cut
    // initialisation has no marker and is made again.
    TicketLine line;
    line.taille = 8.0f;
    QByteArray lines = line.toRecord().repeated(101);
    for (int i = 0; i <= 11; ++i) {
        TicketLine arial;
        arial.pos_x = 500;
        arial.pos_y = 100 + 230 * i;
        arial.taille = 9.0f;
        arial.police = "Arial";
        lines.replace(qsizetype(i) * recordLength, recordLength, arial.toRecord());
    }
    store.putRecords(files::ticketLines, 2, lines);
    line.texte = QByteArrayLiteral("#INIT#") + markerDate(today);
    line.police = "INIT";
    store.put(files::ticketLines, 1, line.toRecord());
}
