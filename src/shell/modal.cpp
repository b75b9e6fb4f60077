#include "shell/modal.h"

#include <QEvent>
#include <QEventLoop>

#include "shell/prompt_dialog.h"

namespace {
// Ends the loop when the program hides or closes the screen (not when the
// window system hides it, as on a minimise, nor when it asks for a close that
// the screen turns into its own cancel).
class EndOnHide : public QObject {
  public:
    explicit EndOnHide(QEventLoop& loop) : loop_(loop) {}

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Hide && !event->spontaneous()) loop_.quit();
        return QObject::eventFilter(watched, event);
    }

  private:
    QEventLoop& loop_;
};
}  // namespace

void runModal(Screen& screen) {
    QEventLoop loop;
    EndOnHide watcher(loop);
    screen.setWindowModality(Qt::ApplicationModal);
    screen.installEventFilter(&watcher);
    screen.show();
    screen.raise();
    screen.activateWindow();
    if (screen.isVisible()) loop.exec();
    screen.removeEventFilter(&watcher);
}

void showPromptDialog(Context& ctx) {
    form97 dialog(ctx);
    dialog.load();
    runModal(dialog);
}
