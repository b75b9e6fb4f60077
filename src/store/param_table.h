#pragma once
// The key and value table WFICP_IA.WDO (file 25, records of 144 bytes), opened
// and closed around each operation so the sales program finds it settled.
#include <QByteArray>
#include <QString>

class RecordStore;

// The value of the key, trimmed, or an empty text when it has no entry.
QString lit_param(RecordStore& store, const QString& cle);
// Replaces the entry's value in place, or appends a new entry after raising the
// count in record 1 (the head is written before the entry).
void ecrit_param(RecordStore& store, const QString& cle, const QString& valeur);

// The 144-byte layout, for tests and tools.
namespace param_layout {
inline constexpr int recordLength = 144;
inline constexpr int valueWidth = 106;
inline constexpr int countOffset = 110;
inline constexpr int keyOffset = 118;
inline constexpr int keyWidth = 25;
}  // namespace param_layout
