#include "report.h"

QString quoted(const QString& text) {
    QString out;
    for (const QChar c : text) {
        if (c == QLatin1Char('"') || c == QLatin1Char('\\'))
            out += QLatin1Char('\\') + c;
        else if (c.unicode() < 0x20)
            out += QStringLiteral("\\x%1").arg(c.unicode(), 2, 16, QLatin1Char('0'));
        else
            out += c;
    }
    return QLatin1Char('"') + out + QLatin1Char('"');
}

namespace {
QString escapedByte(char c) {
    const auto b = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\' || c == '<') return QString(QLatin1Char('\\')) + QLatin1Char(c);
    if (b >= 0x20 && b < 0x7f) return QString(QLatin1Char(c));
    return QStringLiteral("\\x%1").arg(b, 2, 16, QLatin1Char('0'));
}
}  // namespace

QString escaped(const QByteArray& bytes) {
    constexpr qsizetype shortestRun = 6;
    QString out;
    for (qsizetype i = 0; i < bytes.size();) {
        qsizetype run = 1;
        while (i + run < bytes.size() && bytes[i + run] == bytes[i]) ++run;
        if (run >= shortestRun) {
            out += QStringLiteral("<%1*%2>").arg(run).arg(escapedByte(bytes[i]));
            i += run;
        } else {
            out += escapedByte(bytes[i++]);
        }
    }
    return out;
}

QString hexBytes(const QByteArray& bytes) {
    return QString::fromLatin1(bytes.toHex(' '));
}
