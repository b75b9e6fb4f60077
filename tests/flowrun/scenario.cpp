#include "scenario.h"

#include <stdexcept>

#include "store/codec.h"
#include "store/ticket_lines.h"

namespace {

struct Token {
    QByteArray text;
    bool quoted = false;
};

[[noreturn]] void fail(int line, const QString& what) {
    throw std::runtime_error(QStringLiteral("line %1: %2").arg(line).arg(what).toStdString());
}

int hexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

// Words separated by blanks; "quoted text" with \" \\ \n \t and \xNN escapes.
// The file is UTF-8; quoted text stays UTF-8 here.
std::vector<Token> tokenize(const QByteArray& line, int number) {
    std::vector<Token> tokens;
    qsizetype i = 0;
    while (i < line.size()) {
        if (line[i] == ' ' || line[i] == '\t') {
            ++i;
            continue;
        }
        Token t;
        if (line[i] == '"') {
            t.quoted = true;
            ++i;
            bool closed = false;
            while (i < line.size()) {
                char c = line[i++];
                if (c == '"') {
                    closed = true;
                    break;
                }
                if (c != '\\') {
                    t.text += c;
                    continue;
                }
                if (i >= line.size()) fail(number, QStringLiteral("lone backslash"));
                c = line[i++];
                if (c == 'n')
                    t.text += '\n';
                else if (c == 't')
                    t.text += '\t';
                else if (c == 'x' && i + 1 < line.size() && hexDigit(line[i]) >= 0 &&
                         hexDigit(line[i + 1]) >= 0) {
                    t.text += char(hexDigit(line[i]) * 16 + hexDigit(line[i + 1]));
                    i += 2;
                } else
                    t.text += c;
            }
            if (!closed) fail(number, QStringLiteral("unclosed quote"));
        } else {
            while (i < line.size() && line[i] != ' ' && line[i] != '\t') t.text += line[i++];
        }
        tokens.push_back(t);
    }
    return tokens;
}

QByteArray hexBytes(const std::vector<Token>& tokens, size_t from, int line) {
    QByteArray bytes;
    for (size_t k = from; k < tokens.size(); ++k) {
        const QByteArray part = QByteArray::fromHex(tokens[k].text);
        if (part.isEmpty() || part.toHex() != tokens[k].text.toLower())
            fail(line, QStringLiteral("bad hex: %1").arg(QString::fromUtf8(tokens[k].text)));
        bytes += part;
    }
    return bytes;
}

// A content is "text" (UTF-8 in the scenario, Windows-1252 on disk) or
// hex followed by byte values.
QByteArray contentOf(const std::vector<Token>& tokens, size_t from, int line) {
    if (from < tokens.size() && !tokens[from].quoted && tokens[from].text == "hex")
        return hexBytes(tokens, from + 1, line);
    if (from + 1 != tokens.size() || !tokens[from].quoted)
        fail(line, QStringLiteral("expected a \"text\" or hex bytes"));
    return codec::toBytes(QString::fromUtf8(tokens[from].text));
}

int numberOf(const Token& t, int line) {
    bool ok = false;
    const int n = t.text.toInt(&ok);
    if (!ok) fail(line, QStringLiteral("expected a number: %1").arg(QString::fromUtf8(t.text)));
    return n;
}

void need(const std::vector<Token>& tokens, size_t count, int line) {
    if (tokens.size() < count) fail(line, QStringLiteral("missing words"));
}

const QStringList stepVerbs = {"start",  "open",    "fill",  "click", "dblclick", "choose",
                               "tick",   "select",  "timer", "key",   "read",     "wait",
                               "set",    "ask",     "bulle", "look",  "peek",     "screenshot",
                               "unplug", "entries", "fire",  "call",  "close"};

// ticketline N "text" "font" SIZE [bold] [italic] [underline]: a line of
// W_FE1032.WDO as the sales program writes it.
QByteArray ticketLine(const std::vector<Token>& t, int line) {
    need(t, 5, line);
    TicketLine l;
    l.texte = codec::toBytes(QString::fromUtf8(t[2].text));
    l.police = codec::toBytes(QString::fromUtf8(t[3].text));
    bool ok = false;
    l.taille = t[4].text.toFloat(&ok);
    if (!ok) fail(line, QStringLiteral("expected a font size"));
    for (size_t k = 5; k < t.size(); ++k) {
        const QByteArray& flag = t[k].text;
        qint32& field = flag == "bold" ? l.gras : flag == "italic" ? l.italique : l.souligne;
        if (flag != "bold" && flag != "italic" && flag != "underline")
            fail(line, QStringLiteral("a style is bold, italic or underline"));
        field = 1;
    }
    return l.toRecord();
}

}  // namespace

int recordLengthOf(const QString& fileName) {
    const QString name = fileName.toUpper();
    if (name == QLatin1String("WFICP_IA.WDO")) return 144;
    if (name == QLatin1String("SWITCH63.WDO")) return 1024;
    if (name == QLatin1String("W_FE1032.WDO")) return 256;
    return 20;
}

Scenario parseScenario(const QByteArray& text) {
    Scenario s;
    const QList<QByteArray> lines = text.split('\n');
    for (int index = 0; index < lines.size(); ++index) {
        const int line = index + 1;
        const QByteArray raw = lines[index].trimmed();
        if (raw.isEmpty() || raw.startsWith('#')) continue;
        const std::vector<Token> t = tokenize(raw, line);
        const QByteArray verb = t[0].text;
        if (verb == "clock") {
            need(t, 3, line);
            s.clock = QDateTime::fromString(QString::fromUtf8(t[1].text + ' ' + t[2].text),
                                            QStringLiteral("yyyy-MM-dd HH:mm:ss"));
            if (!s.clock.isValid()) fail(line, QStringLiteral("clock is yyyy-MM-dd HH:mm:ss"));
        } else if (verb == "param") {
            need(t, 3, line);
            s.params.emplace_back(QString::fromUtf8(t[1].text), QString::fromUtf8(t[2].text));
        } else if (verb == "file") {
            need(t, 3, line);
            s.files.push_back({QString::fromUtf8(t[1].text), contentOf(t, 2, line)});
        } else if (verb == "record") {
            need(t, 4, line);
            s.records.push_back(
                {QString::fromUtf8(t[1].text), numberOf(t[2], line), contentOf(t, 3, line)});
        } else if (verb == "ticketline") {
            const QByteArray record = ticketLine(t, line);
            s.records.push_back({QStringLiteral("W_FE1032.WDO"), numberOf(t[1], line), record});
        } else if (verb == "port") {
            need(t, 2, line);
            const QString how = t.size() > 2 ? QString::fromUtf8(t[2].text) : QStringLiteral("pty");
            if (how != QLatin1String("pty") && how != QLatin1String("missing") &&
                how != QLatin1String("busy") && how != QLatin1String("vprinter"))
                fail(line, QStringLiteral("a port is pty, busy, missing or vprinter"));
            s.ports[numberOf(t[1], line)] = how;
        } else if (verb == "usb") {
            need(t, 3, line);
            s.usb[numberOf(t[1], line) == 0 ? 0 : 1] = t[2].text == "on";
        } else if (verb == "timers") {
            need(t, 2, line);
            if (t[1].text != "manual") fail(line, QStringLiteral("timers manual"));
            s.manualTimers = true;
        } else if (verb == "absent") {
            need(t, 2, line);
            s.absent << QString::fromUtf8(t[1].text);
        } else if (verb == "printer") {
            need(t, 2, line);
            if (t.size() > 2 && t[2].text != "default")
                fail(line, QStringLiteral("a printer is \"NAME\" or \"NAME\" default"));
            s.printers.emplace_back(QString::fromUtf8(t[1].text), t.size() > 2);
        } else if (verb == "dialog") {
            need(t, 3, line);
            s.dialogs.push_back({numberOf(t[2], line),
                                 t.size() > 3 ? QString::fromUtf8(t[3].text) : QString(),
                                 QString::fromUtf8(t[1].text), line});
        } else if (stepVerbs.contains(QString::fromUtf8(verb))) {
            Step step{line, QString::fromUtf8(verb), {}};
            for (size_t k = 1; k < t.size(); ++k) step.args << QString::fromUtf8(t[k].text);
            s.steps.push_back(step);
        } else {
            fail(line, QStringLiteral("unknown word: %1").arg(QString::fromUtf8(verb)));
        }
    }
    return s;
}
