#include "step_runner.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QCursor>
#include <QDir>
#include <QFile>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPointer>
#include <QRadioButton>
#include <QTest>
#include <QTextEdit>
#include <QTimer>
#include <QTimerEvent>
#include <QWindow>
#include <stdexcept>

#include "describe.h"
#include "report.h"
#include "shared_variables.h"
#include "shell/context.h"
#include "shell/image_banks.h"
#include "shell/info_bubble.h"
#include "shell/screen.h"
#include "store/failure.h"
#include "support/recording_printers.h"

namespace {

[[noreturn]] void refuse(const QString& why) {
    throw std::runtime_error(why.toStdString());
}

const std::map<QString, Qt::Key> keys = {
    {QStringLiteral("Return"), Qt::Key_Return},       {QStringLiteral("Enter"), Qt::Key_Enter},
    {QStringLiteral("Escape"), Qt::Key_Escape},       {QStringLiteral("Tab"), Qt::Key_Tab},
    {QStringLiteral("Backspace"), Qt::Key_Backspace}, {QStringLiteral("F1"), Qt::Key_F1},
    {QStringLiteral("Space"), Qt::Key_Space},
};

// A key as the keyboard sends it; Ctrl with a letter carries its control
// character, as a paste (Ctrl+V) or a bell (Ctrl+G) does.
void pressKey(QWidget* w, const QString& name) {
    if (name.size() == 6 && name.startsWith(QLatin1String("Ctrl+")) && name[5].isUpper()) {
        const QChar letter = name[5];
        QKeyEvent press(QEvent::KeyPress, Qt::Key_A + (letter.unicode() - 'A'), Qt::ControlModifier,
                        QString(QChar(letter.unicode() - 'A' + 1)));
        QApplication::sendEvent(w, &press);
        return;
    }
    const auto key = keys.find(name);
    if (key != keys.end())
        QTest::keyClick(w, key->second);
    else if (name.size() == 1 && name[0].unicode() < 0x80)
        QTest::keyClick(w, name[0].toLatin1());  // a character: "5", ".", "-", "c"
    else
        refuse(QStringLiteral("unknown key %1").arg(name));
}

QString pointerShape() {
    const QCursor* pointer = QGuiApplication::overrideCursor();
    if (!pointer) return QStringLiteral("default");
    return pointer->shape() == Qt::ArrowCursor ? QStringLiteral("arrow")
                                               : QString::number(int(pointer->shape()));
}

QStringList entriesOf(QWidget* w) {
    QStringList entries;
    if (auto* combo = qobject_cast<QComboBox*>(w))
        for (int k = 0; k < combo->count(); ++k) entries << combo->itemText(k);
    else if (auto* list = qobject_cast<QListWidget*>(w))
        for (int k = 0; k < list->count(); ++k) entries << list->item(k)->text();
    else
        refuse(QStringLiteral("not a list"));
    return entries;
}

void choose(QWidget* w, const QString& entry) {
    const bool byIndex = entry.startsWith(QLatin1Char('#'));
    if (auto* combo = qobject_cast<QComboBox*>(w)) {
        const int index = byIndex ? entry.mid(1).toInt() : combo->findText(entry);
        if (index < 0 || index >= combo->count()) refuse(QStringLiteral("no entry %1").arg(entry));
        combo->setCurrentIndex(index);
        emit combo->activated(index);
        return;
    }
    if (auto* list = qobject_cast<QListWidget*>(w)) {
        int row = byIndex ? entry.mid(1).toInt() : -1;
        for (int k = 0; !byIndex && k < list->count(); ++k)
            if (list->item(k)->text() == entry) row = k;
        if (row < 0 || row >= list->count()) refuse(QStringLiteral("no entry %1").arg(entry));
        list->setCurrentRow(row);
        emit list->itemClicked(list->item(row));
        return;
    }
    refuse(QStringLiteral("not a list"));
}

void fill(QWidget* w, const QString& text) {
    if (auto* e = qobject_cast<QLineEdit*>(w)) {
        e->setFocus();
        e->selectAll();
        e->del();
        // Typed as a user types, so the box's own filters and events run.
        QTest::keyClicks(e, text);
    } else if (auto* c = qobject_cast<QComboBox*>(w); c && c->isEditable()) {
        c->setEditText(text);
    } else if (auto* t = qobject_cast<QPlainTextEdit*>(w)) {
        t->setPlainText(text);
    } else if (auto* t = qobject_cast<QTextEdit*>(w)) {
        t->setPlainText(text);
    } else {
        refuse(QStringLiteral("not a text box"));
    }
}

}  // namespace

StepRunner::StepRunner(const Scenario& scenario, FlowInteraction& ui, FlowLog& log,
                       QString screenshotDir)
    : steps_(scenario.steps),
      manualTimers_(scenario.manualTimers),
      ui_(ui),
      log_(log),
      screenshotDir_(std::move(screenshotDir)) {
    if (manualTimers_) QCoreApplication::instance()->installEventFilter(this);
}

// With `timers manual`, a named timer of a screen (Timer1, Timer2) never
// ticks by itself, so that what a scan prints does not depend on how fast
// the run goes.
bool StepRunner::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Timer || ticking_) return false;
    auto* timer = qobject_cast<QTimer*>(watched);
    return timer && !timer->objectName().isEmpty();
}

void StepRunner::begin() {
    QTimer::singleShot(0, this, &StepRunner::runNext);
}

void StepRunner::runNext() {
    if (!running_.empty() && ui_.modalDepth() <= running_.back()) {
        // The step before is still at work (letting events run, say): wait.
        QTimer::singleShot(10, this, &StepRunner::runNext);
        return;
    }
    if (next_ >= steps_.size()) {
        ui_.finish(false);
        return;
    }
    const Step step = steps_[next_++];
    const bool waits = step.verb == QLatin1String("wait");
    QTimer::singleShot(waits && !step.args.isEmpty() ? step.args[0].toInt() : 0, this,
                       &StepRunner::runNext);
    running_.push_back(ui_.modalDepth());
    try {
        execute(step);
    } catch (const std::exception& e) {
        log_.add(QStringLiteral("error line %1 (%2): %3")
                     .arg(step.line)
                     .arg(step.verb, QString::fromLocal8Bit(e.what())));
    }
    if (afterStep) afterStep();
    running_.pop_back();
}

void StepRunner::execute(const Step& step) {
    const QString& verb = step.verb;
    Context& ctx = *ui_.ctx;
    if (verb == QLatin1String("wait")) return;
    if (verb == QLatin1String("start")) {
        // As the program starts: the menu's load, then the menu shows.
        ui_.showScreen(QStringLiteral("menuimp"), false);
        return;
    }
    if (verb == QLatin1String("unplug")) {
        auto* printers = dynamic_cast<RecordingPrinters*>(&ctx.platform.printers());
        if (!printers || step.args.isEmpty()) refuse(QStringLiteral("unplug needs a printer"));
        printers->unplug(step.args[0]);
        return;
    }
    if (verb == QLatin1String("open")) {
        if (step.args.isEmpty()) refuse(QStringLiteral("open needs a screen"));
        ui_.showScreen(step.args[0], step.args.value(1) == QLatin1String("modal"));
        return;
    }
    if (verb == QLatin1String("peek")) {
        // A record as the sales program would read it now, between two steps.
        if (step.args.size() < 2) refuse(QStringLiteral("peek needs a file and a record"));
        QFile file(step.args[0]);
        const int length = recordLengthOf(step.args[0]);
        QByteArray bytes;
        if (file.open(QIODevice::ReadOnly) && file.seek(qint64(step.args[1].toInt() - 1) * length))
            bytes = file.read(length);
        log_.add(QStringLiteral("peek %1 %2 %3")
                     .arg(step.args[0], step.args[1],
                          bytes.isEmpty() ? QStringLiteral("absent")
                                          : QLatin1Char('"') + escaped(bytes) + QLatin1Char('"')));
        return;
    }
    // The prompt dialog itself, called as every screen calls it; the steps
    // after go on inside it until it is answered.
    if (verb == QLatin1String("ask")) {
        if (step.args.size() < 2) refuse(QStringLiteral("ask needs a message and a kind"));
        log_.add(QStringLiteral("ask %1 %2").arg(step.args[1], quoted(step.args[0])));
        ui_.realDialogs = true;
        const int reply = ctx.form97(step.args[0], step.args[1].toInt());
        ui_.realDialogs = false;
        log_.add(QStringLiteral("answer %1 %2").arg(reply).arg(quoted(ctx.msg_dialogue)));
        return;
    }
    // The real info bubble, as a screen calls it.
    if (verb == QLatin1String("bulle")) {
        if (step.args.size() < 2) refuse(QStringLiteral("bulle needs a text and a mode"));
        log_.add(QStringLiteral("bulle %1 %2").arg(quoted(step.args[1]), quoted(step.args[0])));
        bulle(ctx, step.args[0], step.args[1]);
        ui_.follow(ctx.icc().bubble.get());
        return;
    }
    // The shared variables of the context by name; a name that is not one is
    // a control of the screen in front (set: its text, as a caller sets it).
    const QString name = step.args.value(0);
    if (verb == QLatin1String("set") && step.args.size() >= 2 &&
        setSharedVariable(ctx, name, step.args[1]))
        return;
    if (verb == QLatin1String("read")) {
        std::optional<QString> value = sharedVariable(ctx, name);
        if (name == QLatin1String("pointer")) value = pointerShape();
        if (const auto bytes = wire ? wire(name) : std::nullopt) {
            log_.add(QStringLiteral("read %1: %2").arg(name, *bytes));
            return;
        }
        if (value) {
            log_.add(QStringLiteral("read %1 %2").arg(name, quoted(*value)));
            return;
        }
    }
    if (verb == QLatin1String("look")) {
        if (const auto bank = lookAtBank(name, ctx)) {
            log_.add(QStringLiteral("look %1 %2").arg(name, *bank));
            return;
        }
    }
    Screen* screen = ui_.screenWith(name);
    if (!screen) screen = ui_.topmost();
    if (!screen)
        refuse(verb == QLatin1String("set") ? QStringLiteral("no shared variable %1").arg(name)
                                            : QStringLiteral("no screen is shown"));
    act(step, *screen);
}

QObject* StepRunner::control(const Step& step, Screen& screen, int argCount) {
    if (step.args.size() < argCount) refuse(QStringLiteral("missing words"));
    const QString& name = step.args[0];
    QObject* w = screen.objectName() == name ? &screen : screen.findChild<QWidget*>(name);
    if (!w) w = screen.findChild<QTimer*>(name);
    if (!w) refuse(QStringLiteral("no control %1 on %2").arg(name, screen.objectName()));
    return w;
}

void StepRunner::act(const Step& step, Screen& screen) {
    const QString& verb = step.verb;
    if (verb == QLatin1String("screenshot")) {
        if (step.args.isEmpty()) refuse(QStringLiteral("screenshot needs a name"));
        const QPixmap picture = screen.grab();
        const QString file = screenshotDir_ + QLatin1Char('/') + step.args[0] + ".png";
        if (!screenshotDir_.isEmpty() && !picture.save(file))
            refuse(QStringLiteral("cannot write %1").arg(file));
        log_.add(QStringLiteral("screenshot %1").arg(step.args[0]));
        return;
    }
    // The window's own close button, as the user closes a screen: the close
    // event reaches the window as the window system delivers it, and what
    // the screen does about it runs before the next step.
    if (verb == QLatin1String("close")) {
        QWindow* window = screen.windowHandle();
        if (!window) refuse(QStringLiteral("%1 has no window").arg(screen.objectName()));
        const QPointer<Screen> closing(&screen);
        QCloseEvent byWindowSystem;
        QCoreApplication::sendEvent(window, &byWindowSystem);
        if (closing) QCoreApplication::sendPostedEvents(closing, QEvent::MetaCall);
        return;
    }
    // A procedure of the screen that no control calls, by its name.
    if (verb == QLatin1String("call")) {
        if (step.args.isEmpty()) refuse(QStringLiteral("call needs a procedure"));
        const QByteArray name = step.args[0].toLatin1();
        if (screen.metaObject()->indexOfMethod(name + "()") < 0)
            refuse(QStringLiteral("no procedure %1 on %2").arg(step.args[0], screen.objectName()));
        screen.guard([&] { QMetaObject::invokeMethod(&screen, name.constData()); });
        return;
    }
    if (verb == QLatin1String("read") && step.args.value(0) == QLatin1String("bar")) {
        log_.add(QStringLiteral("read bar %1").arg(quoted(barOf(screen))));
        return;
    }
    QObject* target = control(step, screen, 1);
    if (verb == QLatin1String("read")) {
        log_.add(QStringLiteral("read %1 %2").arg(step.args[0], quoted(valueOf(target))));
        return;
    }
    if (verb == QLatin1String("timer")) {
        auto* timer = qobject_cast<QTimer*>(target);
        if (!timer) refuse(QStringLiteral("%1 is not a timer").arg(step.args[0]));
        if (!timer->isActive()) refuse(QStringLiteral("timer %1 is not running").arg(step.args[0]));
        QTimerEvent tick(timer->timerId());
        ticking_ = true;
        QCoreApplication::sendEvent(timer, &tick);
        ticking_ = false;
        return;
    }
    auto* w = qobject_cast<QWidget*>(target);
    if (!w) refuse(QStringLiteral("%1 is not a control").arg(step.args[0]));
    if (verb == QLatin1String("look")) {
        log_.add(QStringLiteral("look %1 %2").arg(step.args[0], lookOf(w, *ui_.ctx)));
        return;
    }
    if (verb == QLatin1String("set")) {
        if (step.args.size() < 2) refuse(QStringLiteral("set needs a name and a value"));
        if (auto* label = qobject_cast<QLabel*>(w))
            label->setText(step.args[1]);
        else if (auto* edit = qobject_cast<QLineEdit*>(w))
            edit->setText(step.args[1]);
        else
            refuse(QStringLiteral("no shared variable or text control %1").arg(step.args[0]));
        return;
    }
    if (verb == QLatin1String("entries")) {
        QStringList entries;
        for (const QString& entry : entriesOf(w)) entries << quoted(entry);
        log_.add(QStringLiteral("entries %1 %2").arg(step.args[0]).arg(entries.size()) +
                 (entries.isEmpty() ? QString() : QStringLiteral(": ") + entries.join(' ')));
        return;
    }
    // What the screen's own code does with a control, hidden or not.
    if (verb == QLatin1String("fire")) {
        auto* button = qobject_cast<QAbstractButton*>(w);
        if (!button) refuse(QStringLiteral("not a button"));
        button->click();
        return;
    }
    if (!w->isVisible() || !w->isEnabled())
        refuse(QStringLiteral("%1 is not visible and enabled").arg(step.args[0]));
    if (verb == QLatin1String("click")) {
        if (auto* b = qobject_cast<QAbstractButton*>(w))
            b->click();
        else
            QTest::mouseClick(w, Qt::LeftButton);
    } else if (verb == QLatin1String("dblclick")) {
        QTest::mouseDClick(w, Qt::LeftButton);
    } else if (verb == QLatin1String("fill")) {
        if (step.args.size() < 2) refuse(QStringLiteral("fill needs a text"));
        fill(w, step.args[1]);
    } else if (verb == QLatin1String("choose")) {
        if (step.args.size() < 2) refuse(QStringLiteral("choose needs an entry"));
        choose(w, step.args[1]);
    } else if (verb == QLatin1String("tick")) {
        auto* box = qobject_cast<QCheckBox*>(w);
        if (!box || step.args.size() < 2) refuse(QStringLiteral("tick needs a box and 0 or 1"));
        if (box->isChecked() != (step.args[1] == QLatin1String("1"))) box->click();
    } else if (verb == QLatin1String("select")) {
        auto* option = qobject_cast<QRadioButton*>(w);
        if (!option) refuse(QStringLiteral("not an option button"));
        option->click();
    } else if (verb == QLatin1String("key")) {
        pressKey(w, step.args.value(1));
    } else {
        refuse(QStringLiteral("unknown step"));
    }
}
