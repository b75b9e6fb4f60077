#include "accent_advice.h"

#include <QStringList>

#include "escpos/code_tables.h"
#include "print/accents.h"
#include "store/codec.h"

namespace {

const QString sample = QStringLiteral("é è ê à ç");
const char* const modeNames[3] = {"0 - Accents normaux", "1 - Sans accents",
                                  "2 - Jeux Internationaux"};

// The bytes of a line's text runs, with the table of the last run that has
// characters beyond ASCII.
struct AccentedLine {
    QByteArray bytes;
    int table = -1;
};

void collect(const escpos::Line& line, QList<AccentedLine>& out, int& lastTable) {
    AccentedLine accented;
    for (const escpos::LineItem& item : line.items)
        if (const auto* run = std::get_if<escpos::TextRun>(&item)) {
            accented.bytes += run->bytes;
            lastTable = run->style.codeTable;
            if (std::any_of(run->bytes.begin(), run->bytes.end(),
                            [](char c) { return uchar(c) >= 0x80; }))
                accented.table = run->style.codeTable;
        }
    if (accented.table >= 0) out << accented;
}

QString tableLabel(int table) {
    return QStringLiteral("table %1 (%2)").arg(table).arg(escpos::codeTableName(table));
}

}  // namespace

QString AccentAdvice::text() const {
    return lines + modes + conclusion;
}

AccentAdvice adviseAccents(const escpos::Sheet& sheet) {
    QList<AccentedLine> accented;
    int lastTable = 0;
    for (const escpos::Block& block : sheet.blocks) {
        if (const auto* line = std::get_if<escpos::Line>(&block))
            collect(*line, accented, lastTable);
        if (const auto* page = std::get_if<escpos::Page>(&block))
            for (const escpos::PageLine& l : page->lines) collect(l.line, accented, lastTable);
    }
    AccentAdvice advice;
    advice.table = accented.isEmpty() ? lastTable : accented.back().table;

    if (accented.isEmpty()) {
        advice.lines = QStringLiteral("Ce ticket n'a pas de ligne accentuée.\n");
    } else {
        advice.lines = QStringLiteral("Les lignes accentuées selon la table :\n");
        for (const AccentedLine& line : accented.mid(0, 5)) {
            advice.lines +=
                QStringLiteral("  octets %1\n")
                    .arg(QString::fromLatin1(line.bytes.trimmed().toHex(' ')).toUpper());
            for (const int table : escpos::commonTables())
                advice.lines +=
                    QStringLiteral("  %1 %2 %3\n")
                        .arg(table == line.table ? QStringLiteral("→") : QStringLiteral(" "))
                        .arg(escpos::codeTableName(table), -8)
                        .arg(escpos::printedText(line.bytes.trimmed(), table, 0));
        }
    }

    // What each mode of the tool puts on the wire for the sample, read back
    // through the ticket's table.
    advice.modes = QStringLiteral("Avec la %1 choisie par le ticket, « %2 » s'imprime :\n")
                       .arg(tableLabel(advice.table), sample);
    QStringList right;
    for (int mode = 0; mode < 3; ++mode) {
        QByteArray bytes = codec::toBytes(sample);
        traduit_accents(bytes, mode);
        const QString printed = escpos::printedText(bytes, advice.table, 0);
        const bool ok = printed == sample;
        if (ok) right << QStringLiteral("« %1 »").arg(QLatin1String(modeNames[mode]));
        advice.modes += QStringLiteral("  %1 %2 : %3\n")
                            .arg(ok ? QStringLiteral("✔") : QStringLiteral("✘"))
                            .arg(QLatin1String(modeNames[mode]), -24)
                            .arg(printed);
    }
    advice.conclusion =
        right.isEmpty()
            ? QStringLiteral(
                  "Aucun mode n'imprime ces accents avec la %1 : choisissez une autre table "
                  "dans l'initialisation (027 116 016 pour WPC1252, 027 116 002 pour PC850), "
                  "ou le mode « 1 - Sans accents ».\n")
                  .arg(tableLabel(advice.table))
            : QStringLiteral("Conseil : avec la %1, choisissez le mode %2.\n")
                  .arg(tableLabel(advice.table), right.join(QStringLiteral(" ou ")));
    return advice;
}
