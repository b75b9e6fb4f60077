#pragma once
// A fixed string of the suite: assignment pads with blanks or cuts to the
// length; replacing characters in place never changes the length and writes
// no more characters than the text has or the string still holds.
#include <QByteArray>
#include <QByteArrayView>

class FixedString {
public:
    explicit FixedString(int length) : data_(length, ' ') {}
    FixedString(int length, QByteArrayView initial) : data_(length, ' ') { assign(initial); }

    void assign(QByteArrayView text) {
        data_.fill(' ');
        replace(1, text.first(qMin(text.size(), data_.size())));
    }
    // Overwrites from the 1-based position on, as far as the text and the
    // string allow.
    void replace(int position, QByteArrayView text) {
        if (position < 1 || position > data_.size()) return;
        const qsizetype count = qMin<qsizetype>(text.size(), data_.size() - position + 1);
        for (qsizetype k = 0; k < count; ++k) data_[position - 1 + k] = text[k];
    }
    // count characters from the 1-based position, fewer at the end.
    QByteArray mid(int position, int count) const { return data_.mid(position - 1, count); }
    const QByteArray& bytes() const { return data_; }
    int length() const { return int(data_.size()); }

private:
    QByteArray data_;
};
