#include "app/app_interaction.h"

#include <unistd.h>

#include <QApplication>
#include <QMessageBox>
#include <cstdio>

#include "shell/info_bubble.h"
#include "shell/modal.h"
#include "shell/screen_registry.h"

AppInteraction::AppInteraction(const ScreenRegistry& registry) : registry_(registry) {}

AppInteraction::~AppInteraction() = default;

void AppInteraction::showDialog() {
    showPromptDialog(*ctx_);
}

void AppInteraction::messageBox(const QString& text) {
    QMessageBox box(QMessageBox::NoIcon, QApplication::applicationName(), text, QMessageBox::Ok);
    box.exec();
}

void AppInteraction::bulle(const QString& texte, const QString& mode) {
    ::bulle(*ctx_, texte, mode);
}

bool AppInteraction::showScreen(const QString& name, bool modal) {
    return registry_.show(name, *ctx_, modal);
}

void AppInteraction::letEventsRun() {
    QCoreApplication::processEvents();
}

namespace {
// Every file is closed (each put has already reached the system), then the
// process ends at once, whatever screens are still loaded: no destructor and
// no statement after the end runs.
[[noreturn]] void closeFilesAndLeave(Context* ctx) {
    if (ctx) ctx->store.closeAll();
    std::fflush(nullptr);
    _exit(0);
}
}  // namespace

void AppInteraction::endProgram() {
    closeFilesAndLeave(ctx_);
}

void AppInteraction::fatal(const QString& what) {
    messageBox(what);
    closeFilesAndLeave(ctx_);
}
