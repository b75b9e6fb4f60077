#include "print/port_parameter_string.h"

#include "store/numeric.h"

PortParameter decodePortParameter(const QString& text) {
    // Five blanks behind it, so that a text shorter than the marker is read
    // like any other.
    if (!(text + QStringLiteral("     ")).startsWith(QLatin1String("##"))) return {0, text};
    return {int(numericValue(text.mid(2, 2))), text.mid(5)};
}

QStringList settingsFields(const QString& text, QString* rest) {
    QString remaining = text + QStringLiteral(",,,,,,,");
    QStringList fields;
    for (int i = 0; i < 4; ++i) {
        const qsizetype comma = remaining.indexOf(QLatin1Char(','));
        fields << remaining.left(comma).trimmed();
        remaining = remaining.mid(comma + 1);
    }
    if (rest) *rest = remaining;
    return fields;
}

QString settingsText(const QStringList& fields) {
    QStringList trimmed;
    for (const QString& field : fields) trimmed << field.trimmed();
    return trimmed.join(QLatin1Char(','));
}

QString portParameterString(int port, const QString& settings) {
    return QStringLiteral("##%1#").arg(port, 2, 10, QLatin1Char('0')) + settings;
}
