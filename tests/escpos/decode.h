#pragma once
// A whole byte string through the decoder, at once or in pieces of `piece`
// bytes as a serial line delivers them.
#include <QByteArray>
#include <algorithm>

#include "escpos/decoder.h"

inline escpos::Document decode(const QByteArray& bytes, qsizetype piece = 0) {
    escpos::Decoder decoder;
    if (piece == 0) decoder.feed(bytes);
    for (qsizetype i = 0; piece && i < bytes.size(); i += piece)
        decoder.feed(QByteArrayView(bytes).sliced(i, std::min(piece, bytes.size() - i)));
    decoder.finish();
    return decoder.document();
}
