#include "startup/launch_word.h"

namespace {
// Only blanks are trimmed: a tab or a zero byte belongs to the text.
QByteArrayView trimBlanks(QByteArrayView text) {
    while (!text.isEmpty() && text.front() == ' ') text = text.sliced(1);
    while (!text.isEmpty() && text.back() == ' ') text.chop(1);
    return text;
}
}  // namespace

LaunchWord launchWordOf(QByteArrayView record) {
    const QByteArrayView word = trimBlanks(record);
    if (word == QByteArrayView("#TIRIND#")) return LaunchWord::Drawer;
    if (word == QByteArrayView("#ETIQUE#")) return LaunchWord::Labels;
    if (word == QByteArrayView("#BALANCE#")) return LaunchWord::Scale;
    return LaunchWord::None;
}

QString screenOf(LaunchWord word) {
    switch (word) {
        case LaunchWord::Drawer:
            return QStringLiteral("tirrro");
        case LaunchWord::Labels:
            return QStringLiteral("etiqqq");
        case LaunchWord::Scale:
        case LaunchWord::None:
            break;
    }
    return QString();
}
