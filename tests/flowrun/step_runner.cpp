#include "step_runner.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTest>
#include <QTextEdit>
#include <QTimer>
#include <QTimerEvent>
#include <stdexcept>

#include "shared_variables.h"
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
};

QString valueOf(QObject* w) {
    if (auto* e = qobject_cast<QLineEdit*>(w)) return e->text();
    if (auto* c = qobject_cast<QComboBox*>(w)) return c->currentText();
    if (auto* b = qobject_cast<QCheckBox*>(w)) return QString::number(int(b->checkState()) / 2);
    if (auto* r = qobject_cast<QRadioButton*>(w)) return r->isChecked() ? "1" : "0";
    if (auto* l = qobject_cast<QLabel*>(w)) return l->text();
    if (auto* t = qobject_cast<QPlainTextEdit*>(w)) return t->toPlainText();
    if (auto* t = qobject_cast<QTextEdit*>(w)) return t->toPlainText();
    if (auto* b = qobject_cast<QAbstractButton*>(w)) return b->text();
    if (auto* l = qobject_cast<QListWidget*>(w))
        return l->currentItem() ? l->currentItem()->text() : QString();
    return QString();
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

StepRunner::StepRunner(std::vector<Step> steps, FlowInteraction& ui, FlowLog& log)
    : steps_(std::move(steps)), ui_(ui), log_(log) {}

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
    running_.pop_back();
}

void StepRunner::execute(const Step& step) {
    if (step.verb == QLatin1String("wait")) return;
    if (step.verb == QLatin1String("start")) {
        // As the program starts: the menu's load, then the menu shows.
        ui_.showScreen(QStringLiteral("menuimp"), false);
        return;
    }
    // The shared variables of the context, by name; `read` of a name that is
    // not one reads the control of that name.
    if (step.verb == QLatin1String("set")) {
        if (step.args.size() < 2) refuse(QStringLiteral("set needs a name and a value"));
        if (!setSharedVariable(*ui_.ctx, step.args[0], step.args[1]))
            refuse(QStringLiteral("no shared variable %1").arg(step.args[0]));
        return;
    }
    if (step.verb == QLatin1String("read") && !step.args.isEmpty()) {
        if (const auto value = sharedVariable(*ui_.ctx, step.args[0])) {
            log_.add(QStringLiteral("read %1 %2").arg(step.args[0], quoted(*value)));
            return;
        }
    }
    if (step.verb == QLatin1String("unplug")) {
        auto* printers = dynamic_cast<RecordingPrinters*>(&ui_.ctx->platform.printers());
        if (!printers || step.args.isEmpty()) refuse(QStringLiteral("unplug needs a printer"));
        printers->unplug(step.args[0]);
        return;
    }
    if (step.verb == QLatin1String("open")) {
        if (step.args.isEmpty()) refuse(QStringLiteral("open needs a screen"));
        ui_.showScreen(step.args[0], step.args.value(1) == QLatin1String("modal"));
        return;
    }
    Screen* screen = ui_.topmost();
    if (!screen) refuse(QStringLiteral("no screen is shown"));
    act(step, *screen);
}

QWidget* StepRunner::control(const Step& step, Screen& screen, int argCount) {
    if (step.args.size() < argCount) refuse(QStringLiteral("missing words"));
    auto* w =
        screen.objectName() == step.args[0] ? &screen : screen.findChild<QWidget*>(step.args[0]);
    if (!w) refuse(QStringLiteral("no control %1 on %2").arg(step.args[0], screen.objectName()));
    return w;
}

void StepRunner::act(const Step& step, Screen& screen) {
    const QString& verb = step.verb;
    if (verb == QLatin1String("timer")) {
        if (step.args.isEmpty()) refuse(QStringLiteral("timer needs a name"));
        auto* timer = screen.findChild<QTimer*>(step.args[0]);
        if (!timer)
            refuse(QStringLiteral("no timer %1 on %2").arg(step.args[0], screen.objectName()));
        if (!timer->isActive()) refuse(QStringLiteral("timer %1 is not running").arg(step.args[0]));
        QTimerEvent tick(timer->timerId());
        QCoreApplication::sendEvent(timer, &tick);
        return;
    }
    QWidget* w = control(step, screen, 1);
    if (verb == QLatin1String("read")) {
        log_.add(QStringLiteral("read %1 %2").arg(step.args[0], quoted(valueOf(w))));
        return;
    }
    if (verb == QLatin1String("entries")) {
        QStringList entries;
        for (const QString& entry : entriesOf(w)) entries << quoted(entry);
        log_.add(QStringLiteral("entries %1 %2").arg(step.args[0]).arg(entries.size()) +
                 (entries.isEmpty() ? QString() : QStringLiteral(": ") + entries.join(' ')));
        return;
    }
    if (verb == QLatin1String("shot")) {
        const QString folder = qEnvironmentVariable("KALVO_SCREENSHOTS");
        if (!folder.isEmpty() && !w->grab().save(QDir(folder).filePath(step.args.value(1))))
            refuse(QStringLiteral("cannot write %1").arg(step.args.value(1)));
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
        const auto key = keys.find(step.args.value(1));
        if (key == keys.end()) refuse(QStringLiteral("unknown key %1").arg(step.args.value(1)));
        QTest::keyClick(w, key->second);
    } else {
        refuse(QStringLiteral("unknown step"));
    }
}
