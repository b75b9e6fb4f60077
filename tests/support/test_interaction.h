#pragma once
// The interaction of a test run. The prompt dialog answers from a script and
// every screen asked for is noted; or, for the dialog and the bubble
// themselves, the real ones run. The end of the program closes every file and
// throws ProgramEnded, so a test that calls an ending action directly sees the
// end and nothing after it.
#include <QStringList>
#include <deque>

#include "shell/context.h"

struct ProgramEnded {};
struct ProgramFailed {
    QString what;
};

// One reply of the user to the prompt dialog.
struct Reply {
    int retour = 2;
    QString text;
    QString expected = {};  // the message the caller should have set (checked by the flow runner)
    int line = 0;           // where a script gave it
};

class TestInteraction : public Interaction {
  public:
    Context* ctx = nullptr;
    bool realDialogs = false;   // the real form97 and info bubble run
    std::deque<Reply> replies;  // unscripted, the user presses Escape (2, "")
    QStringList screensShown;   // "name" or "name modal"
    QStringList asked;          // "kind|message" of every dialog, in order

    void showDialog() override;
    void messageBox(const QString&) override {}
    void bulle(const QString& texte, const QString& mode) override;
    bool showScreen(const QString& name, bool modal) override;
    void letEventsRun() override;
    [[noreturn]] void endProgram() override;
    [[noreturn]] void fatal(const QString& what) override;
};
