#include "store/switch_table.h"

#include "store/fixed_string.h"
#include "store/numeric.h"
#include "store/record_files.h"
#include "store/record_store.h"
#include "store/records.h"

namespace {
constexpr int recordLength = 1024;
constexpr int headWidth = 24;
constexpr int textWidth = 1000;

struct SwitchSession {
    RecordStore& store;
    SwitchSession(RecordStore& s, const QDateTime& now) : store(s) { ouvre_switch(store, now); }
    ~SwitchSession() { store.close(files::switches); }
};
}  // namespace

void ouvre_switch(RecordStore& store, const QDateTime& now) {
    store.close(files::switches);
    store.open(files::switches, QString::fromLatin1(files::switchesName), recordLength);
    QByteArray record = store.get(files::switches, 1);
    if (hasMarker(record)) return;
    FixedString head(headWidth, QByteArrayLiteral("#INIT#") + markerDate(now.date()) +
                                    now.time().toString(QStringLiteral("HH:mm:ss")).toLatin1());
    FixedString text(textWidth);
    text.replace(89, "1 ");  // switch 44 is on in a fresh table
    record.replace(0, headWidth, head.bytes());
    record.replace(headWidth, textWidth, text.bytes());
    store.put(files::switches, 1, record);
}

QByteArray lit_switch(RecordStore& store, const QDateTime& now) {
    SwitchSession session(store, now);
    return store.get(files::switches, 1).mid(headWidth, textWidth);
}

void ecrit_switch(RecordStore& store, const QDateTime& now, const QByteArray& switchs) {
    SwitchSession session(store, now);
    QByteArray record = store.get(files::switches, 1);
    record.replace(headWidth, textWidth, FixedString(textWidth, switchs).bytes());
    store.put(files::switches, 1, record);
}

qint16 val_switch(const QByteArray& switchs, int n) {
    return toInt16(numericValue(switchs.mid(2 * n, 2)));
}

void pose_switch(QByteArray& switchs, int n, int valeur) {
    FixedString text(textWidth, switchs);
    text.replace(2 * n + 1, (QByteArray::number(valeur) + "  ").left(2));
    switchs = text.bytes();
}
