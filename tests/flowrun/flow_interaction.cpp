#include "flow_interaction.h"

#include <QApplication>
#include <QEvent>
#include <cstdlib>

#include "shell/screen_registry.h"

FlowInteraction::FlowInteraction(const ScreenRegistry& registry, const Scenario& scenario,
                                 FlowLog& log)
    : registry_(registry), absent_(scenario.absent), log_(log) {
    replies = scenario.dialogs;
    qApp->installEventFilter(this);
}

void FlowInteraction::showDialog() {
    if (realDialogs) return TestInteraction::showDialog();
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
    TestInteraction::bulle(texte, mode);
}

bool FlowInteraction::showScreen(const QString& name, bool modal) {
    log_.add(QStringLiteral("screen %1%2").arg(name, modal ? QStringLiteral(" modal") : QString()));
    if (absent_.contains(name) || !registry_.contains(name)) {
        log_.add(QStringLiteral("screen %1 missing").arg(name));
        return false;
    }
    asked_ << name;
    const bool shown = registry_.show(name, *ctx, modal);
    asked_.removeOne(name);  // when its load ended before it showed
    return shown;
}

bool FlowInteraction::eventFilter(QObject* watched, QEvent* event) {
    const bool shows = event->type() == QEvent::Show;
    const bool hides = event->type() == QEvent::Hide && !event->spontaneous();
    auto* screen = qobject_cast<Screen*>(watched);
    if ((!shows && !hides) || !screen || !screen->isWindow()) return false;
    const bool bubble = screen->objectName() == QLatin1String("infoobulle");
    if (shows) {
        std::erase_if(shown_, [&](const QPointer<Screen>& s) { return s == screen || !s; });
        shown_.emplace_back(screen);
        if (asked_.removeOne(screen->objectName())) named_.insert(screen);
        if (bubble) {
            auto* text = screen->findChild<QLabel*>(QStringLiteral("Label1"));
            log_.add(QStringLiteral("bubble shown %1%2")
                         .arg(quoted(text ? text->text() : ""),
                              bubble_ && bubble_ != screen ? " (a second bubble)" : ""));
            bubble_ = screen;
        }
    } else if (bubble) {
        log_.add(QStringLiteral("bubble hidden"));
    } else if (named_.remove(screen)) {
        log_.add(QStringLiteral("screen %1 closed").arg(screen->objectName()));
        closed_.emplace_back(screen);
    }
    return false;
}

void FlowInteraction::endProgram() {
    end();
}

void FlowInteraction::fatal(const QString& what) {
    log_.add(QStringLiteral("fatal %1").arg(quoted(what)));
    end();
}

void FlowInteraction::end() {
    qApp->removeEventFilter(this);
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

void FlowInteraction::follow(Screen* screen) {
    if (std::find(shown_.begin(), shown_.end(), screen) == shown_.end())
        shown_.insert(shown_.begin(), screen);
}

Screen* FlowInteraction::screenWith(const QString& control) const {
    const auto has = [&](Screen* s) {
        return s->objectName() == control || s->findChild<QObject*>(control);
    };
    if (Screen* front = topmost(); front && has(front)) return front;
    const auto closed = [&](Screen* s) {
        return std::find(closed_.begin(), closed_.end(), s) != closed_.end();
    };
    for (auto it = shown_.rbegin(); it != shown_.rend(); ++it)
        if (*it && !closed(*it) && has(*it)) return *it;
    return nullptr;
}

QStringList FlowInteraction::stillLoaded() const {
    QStringList names;
    for (const QPointer<Screen>& s : closed_)
        if (s && !s->isVisible()) names << s->objectName();
    return names;
}

int FlowInteraction::modalDepth() {
    int depth = 0;
    for (QWidget* w : QApplication::topLevelWidgets()) depth += w->isVisible() && w->isModal();
    return depth;
}
