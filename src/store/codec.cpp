#include "store/codec.h"

#include <QStringDecoder>
#include <QStringEncoder>

namespace codec {

QByteArray toBytes(const QString& text) {
    QStringEncoder encoder("windows-1252");
    return encoder(text);
}

QString fromBytes(QByteArrayView bytes) {
    QStringDecoder decoder("windows-1252");
    return decoder(bytes);
}

QString boxText(QByteArrayView bytes) {
    const qsizetype nul = bytes.indexOf('\0');
    return fromBytes(nul < 0 ? bytes : bytes.first(nul));
}

}  // namespace codec
