#pragma once
// Runs the scenario's steps one by one from queued timers, so that a step
// that opens a modal screen (which runs its own event loop) does not stop the
// next steps: they then act on the modal screen.
#include <QObject>
#include <functional>
#include <optional>
#include <vector>

#include "flow_interaction.h"
#include "report.h"
#include "scenario.h"

class StepRunner : public QObject {
    Q_OBJECT
  public:
    // Pictures taken by `screenshot` are saved in screenshotDir when it is
    // not empty.
    StepRunner(const Scenario& scenario, FlowInteraction& ui, FlowLog& log, QString screenshotDir);
    void begin();
    // What a port or USB family received since last asked ("COM3", "T1").
    std::function<std::optional<QString>(const QString&)> wire;
    // Runs after each step.
    std::function<void()> afterStep;

  protected:
    // The screens' timers tick only when a step says so.
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void runNext();
    void execute(const Step& step);
    void act(const Step& step, Screen& screen);
    QObject* control(const Step& step, Screen& screen, int argCount);

    std::vector<Step> steps_;
    bool manualTimers_;
    size_t next_ = 0;
    FlowInteraction& ui_;
    FlowLog& log_;
    QString screenshotDir_;
    // The modal depth at the start of each step still running: a later step
    // may only run inside a modal loop that a running step opened.
    std::vector<int> running_;
    bool ticking_ = false;  // a `timer` step is delivering its tick
};
