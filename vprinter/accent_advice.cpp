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
    advice.accented = !accented.isEmpty();

    if (accented.isEmpty()) {
        advice.lines = QStringLiteral("Ce ticket n'a pas de ligne accentuée.\n");
    } else {
        advice.lines = QStringLiteral("Lignes accentuées, selon la table :\n");
        for (const AccentedLine& line : accented.mid(0, 5)) {
            QByteArray high;
            for (const char c : line.bytes)
                if (uchar(c) >= 0x80) high += c;
            advice.lines +=
                QStringLiteral("  octets %1\n").arg(QString::fromLatin1(high.toHex(' ')).toUpper());
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
    advice.modes = QStringLiteral(
                       "Table choisie par le ticket : %1 (%2)\n"
                       "« %3 » selon le mode d'accents :\n")
                       .arg(advice.table)
                       .arg(escpos::codeTableName(advice.table), sample);
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
    advice.conclusion = right.isEmpty() ? QStringLiteral(
                                              "Conseil : aucun mode n'imprime ces accents avec\n"
                                              "cette table. Mettez 027 116 016 (WPC1252) ou\n"
                                              "027 116 002 (PC850) dans l'initialisation, ou\n"
                                              "choisissez « 1 - Sans accents ».\n")
                                        : QStringLiteral("Conseil : choisissez le mode %1.\n")
                                              .arg(right.join(QStringLiteral(" ou ")));
    return advice;
}
