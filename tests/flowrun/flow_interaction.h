#pragma once
// The flow runner's interaction: the test interaction, whose scripted replies
// come from the scenario, with every event written to the report as it
// happens. The reply's message is checked against the one asked; screens are
// the real ones, shown as the application shows them; the end of the program
// prints the report and leaves the process at once.
#include <QPointer>
#include <functional>
#include <vector>

#include "flow_log.h"
#include "scenario.h"
#include "shell/screen.h"
#include "support/test_interaction.h"

class ScreenRegistry;

class FlowInteraction : public TestInteraction {
  public:
    FlowInteraction(const ScreenRegistry& registry, const Scenario& scenario, FlowLog& log);
    // Prints the report and leaves the process; set by the runner.
    std::function<void(bool ended)> finish;

    void showDialog() override;
    void messageBox(const QString& text) override;
    void bulle(const QString& texte, const QString& mode) override;
    bool showScreen(const QString& name, bool modal) override;
    [[noreturn]] void endProgram() override;
    [[noreturn]] void fatal(const QString& what) override;

    // The screen the user acts on: the last one shown that is still visible.
    Screen* topmost() const;
    int modalDepth() const { return modalDepth_; }

  private:
    [[noreturn]] void end();
    const ScreenRegistry& registry_;
    QStringList absent_;
    FlowLog& log_;
    std::vector<QPointer<Screen>> shown_;
    int modalDepth_ = 0;
};
