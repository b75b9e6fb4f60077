#include "print/code_string.h"

#include <cmath>

#include "store/codec.h"
#include "store/fixed_string.h"
#include "store/numeric.h"

namespace {

constexpr int recordLength = 20;
constexpr int fieldWidth = 3;

// Trimming removes blanks only, as the suite's own trim does.
QByteArray trimBlankBytes(QByteArrayView text) {
    qsizetype first = 0, last = text.size();
    while (first < last && text[first] == ' ') ++first;
    while (last > first && text[last - 1] == ' ') --last;
    return text.sliced(first, last - first).toByteArray();
}

QString trimBlanks(const QString& text) {
    return codec::fromBytes(trimBlankBytes(codec::toBytes(text)));
}

// Padded with blanks and cut to the width.
QByteArray fitted(QByteArrayView text, int width) {
    return FixedString(width, text).bytes();
}

int fieldPosition(CodeLayout layout, int index) {
    return 1 + (layout == CodeLayout::Packed ? fieldWidth : fieldWidth + 1) * index;
}

}  // namespace

QStringList readCodeFields(QByteArrayView record, CodeLayout layout, int count) {
    QStringList fields;
    for (int i = 0; i < count; ++i) {
        const qsizetype from = fieldPosition(layout, i) - 1;
        const QByteArrayView piece =
            from < record.size()
                ? record.sliced(from, qMin<qsizetype>(fieldWidth, record.size() - from))
                : QByteArrayView();
        fields << codec::boxText(trimBlankBytes(piece));
    }
    return fields;
}

QByteArray writeCodeFields(QByteArrayView record, CodeLayout layout, const QStringList& fields) {
    // What was read stands as it was wherever no field goes.
    QByteArray out = record.first(qMin<qsizetype>(record.size(), recordLength)).toByteArray();
    if (out.size() < recordLength) out.append(recordLength - out.size(), ' ');
    FixedString fixed(recordLength, out);
    for (int i = 0; i < fields.size(); ++i) {
        const QByteArray text = codec::toBytes(fields[i]);
        if (layout == CodeLayout::Packed) {
            fixed.replace(fieldPosition(layout, i), fitted(trimBlankBytes(text), fieldWidth));
        } else {
            fixed.replace(fieldPosition(layout, i), fitted(text, fieldWidth) + ':');
        }
    }
    return fixed.bytes();
}

QString readDrawerField(QByteArrayView record) {
    return codec::boxText(record.first(qMin<qsizetype>(fieldWidth, record.size())));
}

QByteArray writeDrawerField(const QString& field) {
    const QString trimmed = trimBlanks(field);
    if (trimmed.isEmpty()) return QByteArray(recordLength, ' ');
    // The "000" format rounds halves away from zero and keeps the sign.
    const double value = std::round(numericValue(trimmed));
    QByteArray digits = QByteArray::number(std::fabs(value), 'f', 0);
    if (digits.size() < fieldWidth) digits.prepend(QByteArray(fieldWidth - digits.size(), '0'));
    if (value < 0) digits.prepend('-');
    return fitted(digits, recordLength);
}

char codeByte(const QString& field) {
    return char(toByte(numericValue(field)));
}

QByteArray codeBytes(const QStringList& fields) {
    QByteArray bytes;
    for (const QString& field : fields) {
        if (!trimBlanks(field).isEmpty()) bytes.append(codeByte(field));
    }
    return bytes;
}

QStringList cutPieces(const QStringList& fields) {
    QByteArray text;
    for (const QString& field : fields) text += fitted(codec::toBytes(field), fieldWidth);
    QStringList pieces;
    for (int position = 1; position <= 16; position += fieldWidth) {
        pieces << codec::fromBytes(text.mid(position - 1, fieldWidth));
    }
    return pieces;
}

bool isBlankPiece(const QString& piece) {
    return piece == QStringLiteral("   ");
}
