#pragma once
// The real interaction: the shell's prompt dialog and info bubble, the
// system's message box, screens shown through the registry, and the end of
// the program, which closes every file and leaves the process at once.
#include "shell/context.h"

class ScreenRegistry;

class AppInteraction : public Interaction {
  public:
    explicit AppInteraction(const ScreenRegistry& registry);
    ~AppInteraction() override;
    // The context this interaction serves; set once, right after both exist.
    void attach(Context& ctx) { ctx_ = &ctx; }

    void showDialog() override;
    void messageBox(const QString& text) override;
    void bulle(const QString& texte, const QString& mode) override;
    bool showScreen(const QString& name, bool modal) override;
    void letEventsRun() override;
    [[noreturn]] void endProgram() override;
    [[noreturn]] void fatal(const QString& what) override;

  private:
    Context* ctx_ = nullptr;
    const ScreenRegistry& registry_;
};
