#include "shell/prompt_message.h"

#include <limits>

#include "store/numeric.h"

namespace {
// Takes the prefix off the head of the text; true when it was there.
bool takePrefix(QString& text, const QString& prefix) {
    if (!text.startsWith(prefix)) return false;
    text.remove(0, prefix.size());
    return true;
}

// Splits "message|value" at the first "|": the text keeps the message.
QString takeValue(QString& text) {
    const qsizetype bar = text.indexOf(QLatin1Char('|'));
    if (bar < 0) return {};
    const QString value = text.mid(bar + 1);
    text.truncate(bar);
    return value;
}

// "#COU#012 text": the three digits, cut to a whole number; a value that no
// integer holds ("9e9") is no number at all, and the prefix changes nothing.
std::optional<int> takeNumberPrefix(QString& msg, const QString& prefix) {
    if (!takePrefix(msg, prefix)) return std::nullopt;
    const double value = numericValue(msg.left(3));
    msg.remove(0, 4);
    if (!(value > double(std::numeric_limits<int>::min()) - 1 &&
          value < double(std::numeric_limits<int>::max()) + 1))
        return std::nullopt;
    return int(value);
}

// Kind -4: items "124:Imprimer1|", an image, a caption and the tag as last
// character, on slots 7 to 11 in their order; an empty item takes a slot.
void readCallerSlots(PromptMessage& m) {
    qsizetype from = 0;
    for (int slot = 7; slot <= 11; ++slot) {
        const qsizetype end = m.tail.indexOf(QLatin1Char('|'), from);
        if (end < 0) break;
        const QString item = m.tail.mid(from, end - from);
        from = end + 1;
        if (item.isEmpty()) continue;
        m.callerSlots.push_back(
            {slot, QStringLiteral("%1:%2").arg(slot, 3, 10, QLatin1Char('0')).arg(item.chopped(1)),
             item.right(1)});
    }
}
}  // namespace

PromptMessage readPromptMessage(QString msg, int kind) {
    PromptMessage m;
    m.colour = takeNumberPrefix(msg, QStringLiteral("#COU#"));
    m.fontSize = takeNumberPrefix(msg, QStringLiteral("#POL#"));
    if (const qsizetype mark = msg.indexOf(QStringLiteral("#MKM#")); mark >= 0) {
        m.tail = msg.mid(mark + 5);
        msg.truncate(mark);
        m.tickBox = !m.tail.trimmed().isEmpty();
    }
    m.leftAligned = takePrefix(msg, QStringLiteral("#A#"));
    m.yesNo = takePrefix(msg, QStringLiteral("ON|"));
    m.search = takePrefix(msg, QStringLiteral("*"));
    m.choosePrinter = takePrefix(msg, QStringLiteral("}"));
    if (kind == -654) {
        m.boxMode = true;
        m.kind = 4;
        m.value = takeValue(msg);
    } else {
        // The flags, each by a strict comparison, in this order.
        if (kind > 100000) {
            kind -= 100000;
            m.password = true;
        }
        if (kind > 10000) kind -= 10000;
        if (kind > 1000) kind -= 1000;
        if (kind > 128) {
            kind -= 128;
            m.entry = true;
            m.value = takeValue(msg);
        }
        m.kind = kind;
    }
    if (m.kind == -4) readCallerSlots(m);
    m.text = msg;
    return m;
}
