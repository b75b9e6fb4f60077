#include "step_runner.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTest>
#include <QTextEdit>
#include <QTimer>
#include <QTimerEvent>
#include <stdexcept>

#include "file_diff.h"
#include "shared_variables.h"
#include "shell/screen.h"
#include "store/failure.h"

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
    if (auto* screen = qobject_cast<QWidget*>(w); screen && screen->isWindow())
        return screen->windowTitle();
    return QString();
}

// A colour as the suite numbers it: blue, green, red, in six hex digits.
QString colourNumber(const QColor& c) {
    return QStringLiteral("%1")
        .arg((c.blue() << 16) | (c.green() << 8) | c.red(), 6, 16, QLatin1Char('0'))
        .toUpper();
}

// Whether the control itself is visible (its Visible, whatever its frame),
// its background when it paints one, and the border of a shape.
QString looks(QWidget* w) {
    QString text = w->isHidden() ? QStringLiteral("hidden") : QStringLiteral("visible");
    if (w->autoFillBackground())
        text += QStringLiteral(" back ") + colourNumber(w->palette().color(QPalette::Window));
    const QVariant border = w->property("borderColor");
    if (border.isValid()) text += QStringLiteral(" border ") + colourNumber(border.value<QColor>());
    return text;
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
    : steps_(std::move(steps)), ui_(ui), log_(log) {
    QCoreApplication::instance()->installEventFilter(this);
}

// A named timer of a screen (Timer1, Timer2) never ticks by itself during a
// flow, so that what a scan prints does not depend on how fast the run goes.
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
    if (step.verb == QLatin1String("peek")) {
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
        ticking_ = true;
        QCoreApplication::sendEvent(timer, &tick);
        ticking_ = false;
        return;
    }
    if (verb == QLatin1String("screenshot")) {
        // Only when asked for; the report is the same either way.
        const QString folder = qEnvironmentVariable("KALVO_SCREENSHOTS");
        if (folder.isEmpty() || step.args.isEmpty()) return;
        screen.grab().save(QDir(folder).filePath(step.args[0] + QStringLiteral(".png")));
        return;
    }
    QWidget* w = control(step, screen, 1);
    if (verb == QLatin1String("read")) {
        log_.add(QStringLiteral("read %1 %2").arg(step.args[0], quoted(valueOf(w))));
        return;
    }
    if (verb == QLatin1String("look")) {
        log_.add(QStringLiteral("look %1 %2").arg(step.args[0], looks(w)));
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
        const QString name = step.args.value(1);
        const auto key = keys.find(name);
        if (key != keys.end())
            QTest::keyClick(w, key->second);
        else if (name.size() == 1 && name[0].unicode() < 0x80)
            QTest::keyClick(w, name[0].toLatin1());  // a character: "5", ".", "-", "c"
        else
            refuse(QStringLiteral("unknown key %1").arg(name));
    } else {
        refuse(QStringLiteral("unknown step"));
    }
}
