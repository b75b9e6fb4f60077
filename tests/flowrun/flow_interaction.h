#pragma once
// The flow runner's interaction: the prompt dialog answers from the script
// and checks the message each reply expects; message boxes and bubbles are
// noted; screens are the real ones, shown as the application shows them; the
// end of the program prints the report and leaves the process at once.
#include <QPointer>
#include <deque>
#include <functional>
#include <vector>

#include "flow_log.h"
#include "scenario.h"
#include "shell/context.h"
#include "shell/screen.h"

class ScreenRegistry;

class FlowInteraction : public Interaction {
  public:
    FlowInteraction(const ScreenRegistry& registry, const Scenario& scenario, FlowLog& log);
    void attach(Context& ctx) { ctx_ = &ctx; }
    // Prints the report and leaves the process; set by the runner.
    std::function<void(bool ended)> finish;

    void showDialog() override;
    void messageBox(const QString& text) override;
    void bulle(const QString& texte, const QString& mode) override;
    bool showScreen(const QString& name, bool modal) override;
    void letEventsRun() override;
    [[noreturn]] void endProgram() override;
    [[noreturn]] void fatal(const QString& what) override;

    // The screen the user acts on: the last one shown that is still visible.
    Screen* topmost() const;
    int modalDepth() const { return modalDepth_; }
    // Replies the script gave that no dialog asked for.
    const std::deque<DialogReply>& unusedReplies() const { return replies_; }

  private:
    Context* ctx_ = nullptr;
    const ScreenRegistry& registry_;
    QStringList absent_;
    std::deque<DialogReply> replies_;
    FlowLog& log_;
    std::vector<QPointer<Screen>> shown_;
    int modalDepth_ = 0;
};
