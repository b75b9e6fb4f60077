#pragma once
// The flow runner's interaction: the test interaction, whose scripted replies
// come from the scenario, with every event written to the report as it
// happens. The reply's message is checked against the one asked; screens are
// shown by the real registry, as the application shows them; the end of the
// program prints the report and leaves the process at once.
#include <QPointer>
#include <QSet>
#include <functional>
#include <vector>

#include "report.h"
#include "scenario.h"
#include "shell/screen.h"
#include "support/test_interaction.h"

class ScreenRegistry;

class FlowInteraction : public QObject, public TestInteraction {
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

    // The screen the user acts on: the last one shown that is still visible,
    // whoever showed it (a screen, the prompt dialog, its keyboard, the bubble).
    Screen* topmost() const;
    // The screen that has the control: the one in front, else the latest
    // shown before it that has it and has not closed, hidden ones included
    // (the bubble once it has hidden itself); null when none has it.
    Screen* screenWith(const QString& control) const;
    // Follows a screen made but perhaps never shown (the bubble).
    void follow(Screen* screen);
    // How many modal screens stand open: a step runs inside the innermost.
    static int modalDepth();
    // The screens that closed but are still loaded (each should unload).
    QStringList stillLoaded() const;

  protected:
    // Follows every screen as it shows and hides.
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    [[noreturn]] void end();
    const ScreenRegistry& registry_;
    QStringList absent_;
    FlowLog& log_;
    std::vector<QPointer<Screen>> shown_;   // in the order they last showed
    QStringList asked_;                     // screens asked for, not shown yet
    QSet<QObject*> named_;                  // screens shown by their names
    std::vector<QPointer<Screen>> closed_;  // screens shown by name that closed
    QPointer<Screen> bubble_;               // the run's one info bubble
};
