#include "store/numeric.h"

#include <cmath>
#include <string>

#include "store/codec.h"
#include "store/failure.h"

namespace {
bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }
bool isDigit(char c) { return c >= '0' && c <= '9'; }
}  // namespace

double numericValue(QByteArrayView text) {
    // Collect the characters that form the number, dropping blanks anywhere.
    std::string number;
    bool digitSeen = false, pointSeen = false, exponentSeen = false;
    qsizetype i = 0;
    const qsizetype n = text.size();
    auto next = [&]() -> char {
        while (i < n && isBlank(text[i])) ++i;
        return i < n ? text[i] : '\0';
    };
    char c = next();
    if (c == '+' || c == '-') {
        number += c;
        ++i;
    }
    while ((c = next()) != '\0') {
        if (isDigit(c)) {
            number += c;
            digitSeen = true;
        } else if (c == '.' && !pointSeen && !exponentSeen) {
            number += c;
            pointSeen = true;
        } else if ((c == 'e' || c == 'E' || c == 'd' || c == 'D') && digitSeen && !exponentSeen) {
            // An exponent counts only when digits follow it.
            qsizetype save = i;
            ++i;
            std::string exponent = "e";
            char s = next();
            if (s == '+' || s == '-') {
                exponent += s;
                ++i;
            }
            if (!isDigit(next())) {
                i = save;
                break;
            }
            number += exponent;
            exponentSeen = true;
            continue;
        } else {
            break;
        }
        ++i;
    }
    if (!digitSeen) return 0.0;
    const double value = std::strtod(number.c_str(), nullptr);
    return std::isfinite(value) ? value : 0.0;
}

double numericValue(const QString& text) { return numericValue(QByteArrayView(codec::toBytes(text))); }

double roundHalfEven(double value) { return std::nearbyint(value); }

QString formatZero(double value) {
    const double rounded = std::round(value);
    return QString::number(rounded == 0 ? 0.0 : rounded, 'f', 0);
}

unsigned char toByte(double value) {
    const double r = roundHalfEven(value);
    if (!(r >= 0 && r <= 255)) throw Failure(QStringLiteral("Valeur hors limites : %1").arg(value));
    return static_cast<unsigned char>(r);
}

qint16 toInt16(double value) {
    const double r = roundHalfEven(value);
    if (!(r >= -32768 && r <= 32767)) throw Failure(QStringLiteral("Dépassement de capacité"));
    return static_cast<qint16>(r);
}

qint32 toInt32(double value) {
    const double r = roundHalfEven(value);
    if (!(r >= -2147483648.0 && r <= 2147483647.0)) throw Failure(QStringLiteral("Dépassement de capacité"));
    return static_cast<qint32>(r);
}
