#include "support/test_interaction.h"

#include <QCoreApplication>

#include "shell/info_bubble.h"
#include "shell/modal.h"

void TestInteraction::showDialog() {
    asked << QStringLiteral("%1|%2").arg(ctx->retour_dialogue).arg(ctx->msg_dialogue);
    if (realDialogs) return showPromptDialog(*ctx);
    const Reply r = replies.empty() ? Reply{} : replies.front();
    if (!replies.empty()) replies.pop_front();
    ctx->retour_dialogue = r.retour;
    ctx->msg_dialogue = r.text;
}

void TestInteraction::bulle(const QString& texte, const QString& mode) {
    if (realDialogs) ::bulle(*ctx, texte, mode);
}

bool TestInteraction::showScreen(const QString& name, bool modal) {
    screensShown << name + (modal ? QStringLiteral(" modal") : QString());
    return true;
}

void TestInteraction::letEventsRun() {
    QCoreApplication::processEvents();
}

void TestInteraction::endProgram() {
    if (ctx) ctx->store.closeAll();
    throw ProgramEnded{};
}

void TestInteraction::fatal(const QString& what) {
    throw ProgramFailed{what};
}
