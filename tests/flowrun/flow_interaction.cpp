#include "flow_interaction.h"

#include <cstdlib>

#include "shell/modal.h"
#include "shell/screen_registry.h"

QString quoted(const QString& text) {
    QString out;
    for (const QChar c : text) {
        if (c == QLatin1Char('"') || c == QLatin1Char('\\'))
            out += QLatin1Char('\\') + c;
        else if (c.unicode() < 0x20)
            out += QStringLiteral("\\x%1").arg(c.unicode(), 2, 16, QLatin1Char('0'));
        else
            out += c;  // accented letters stand as they are (the report is UTF-8)
    }
    return QLatin1Char('"') + out + QLatin1Char('"');
}

FlowInteraction::FlowInteraction(const ScreenRegistry& registry, const Scenario& scenario,
                                 FlowLog& log)
    : registry_(registry), absent_(scenario.absent), log_(log) {
    replies = scenario.dialogs;
}

void FlowInteraction::showDialog() {
    const QString asked = ctx->msg_dialogue;
    QString line = QStringLiteral("dialog %1 %2").arg(ctx->retour_dialogue).arg(quoted(asked));
    if (replies.empty()) {
        TestInteraction::showDialog();
        log_.add(line + QStringLiteral(" -> UNSCRIPTED, Escape"));
        return;
    }
    const Reply reply = replies.front();
    TestInteraction::showDialog();
    if (reply.expected != asked)
        line += QStringLiteral(" MISMATCH, line %1 expects %2")
                    .arg(reply.line)
                    .arg(quoted(reply.expected));
    line += QStringLiteral(" -> %1").arg(reply.retour);
    if (!reply.text.isEmpty()) line += QLatin1Char(' ') + quoted(reply.text);
    log_.add(line);
}

void FlowInteraction::messageBox(const QString& text) {
    log_.add(QStringLiteral("messagebox %1").arg(quoted(text)));
}

void FlowInteraction::bulle(const QString& texte, const QString& mode) {
    log_.add(QStringLiteral("bulle %1 %2").arg(quoted(mode), quoted(texte)));
}

// As the application shows a screen (ScreenRegistry::show), noting each one
// so that the steps act on the one in front.
bool FlowInteraction::showScreen(const QString& name, bool modal) {
    log_.add(QStringLiteral("screen %1%2").arg(name, modal ? QStringLiteral(" modal") : QString()));
    std::unique_ptr<Screen> screen =
        absent_.contains(name) ? nullptr : registry_.create(name, *ctx);
    if (!screen) {
        log_.add(QStringLiteral("screen %1 missing").arg(name));
        return false;
    }
    screen->load();
    shown_.emplace_back(screen.get());
    if (!modal) {
        screen->setAttribute(Qt::WA_DeleteOnClose);
        screen.release()->show();
        return true;
    }
    ++modalDepth_;
    runModal(*screen);
    --modalDepth_;
    log_.add(QStringLiteral("screen %1 closed").arg(name));
    return true;
}

void FlowInteraction::endProgram() {
    end();
}

void FlowInteraction::fatal(const QString& what) {
    log_.add(QStringLiteral("fatal %1").arg(quoted(what)));
    end();
}

void FlowInteraction::end() {
    if (ctx) ctx->store.closeAll();
    log_.add(QStringLiteral("end of program"));
    finish(true);
    std::abort();  // finish never returns
}

Screen* FlowInteraction::topmost() const {
    for (auto it = shown_.rbegin(); it != shown_.rend(); ++it)
        if (*it && (*it)->isVisible()) return *it;
    return nullptr;
}
