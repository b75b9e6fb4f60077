#pragma once
// Printer commands kept as text: a CodeString is a row of fields of at most 3
// characters, each blank or a decimal byte value.
#include <QByteArray>
#include <QString>
#include <QStringList>

enum class CodeLayout {
    Packed,     // field i at character 1 + 3i, characters 19 and 20 untouched
    Separated,  // field i at character 1 + 4i, a separator behind each field
};

// Reading a field from a record: the 3 characters at its place, trimmed.
QStringList readCodeFields(QByteArrayView record, CodeLayout layout, int count);
// Writing fields into a record read first, changed in place (20 characters).
QByteArray writeCodeFields(QByteArrayView record, CodeLayout layout, const QStringList& fields);

// The drawer slot, one field per record: the first 3 characters, not trimmed.
QString readDrawerField(QByteArrayView record);
// Trimmed empty gives a blank record, otherwise the value formatted "000".
QByteArray writeDrawerField(const QString& field);

// One field to its byte (numeric reading rule, ties to even); throws Failure
// above 255 or below 0.
char codeByte(const QString& field);
// The general form: the byte of every field that is not blank after trimming.
QByteArray codeBytes(const QStringList& fields);
// The paper cut form, piece by piece: the fields padded and cut to 3
// characters make a text of 15, read in pieces of 3 at 1, 4, 7, 10, 13 and 16.
// The sixth piece lies beyond the end and is empty. A piece that is not three
// blanks is one byte, written at once.
QStringList cutPieces(const QStringList& fields);
bool isBlankPiece(const QString& piece);
