#pragma once
// The one border between screen text (QString) and record or wire bytes
// (Windows-1252). A character of a record is one byte.
#include <QByteArray>
#include <QByteArrayView>
#include <QString>

namespace codec {
QByteArray toBytes(const QString& text);
QString fromBytes(QByteArrayView bytes);
// What a text box shows of record bytes: the text stops at the first NUL byte,
// so a record that was never written (zero bytes) shows as an empty box.
QString boxText(QByteArrayView bytes);
}  // namespace codec
