#pragma once
// What every screen is: a top-level widget with its controls named as the
// suite names them ("Text8(10)", "bt_prog(2)"), a load step, and the bar.
#include <QLabel>
#include <QSize>
#include <QString>
#include <QWidget>
#include <functional>
#include <map>

class Context;

// A label that takes clicks, as the suite's image and label controls do.
class ClickLabel : public QLabel {
    Q_OBJECT
  public:
    explicit ClickLabel(QWidget* parent = nullptr) : QLabel(parent) {}
  signals:
    void clicked();
    void doubleClicked();

  protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
};

// The name of element i of a control array: "Text8(10)".
QString arrayName(const QString& name, int index);

class Screen : public QWidget {
    Q_OBJECT
  public:
    Screen(Context& ctx, const QString& name, QWidget* parent = nullptr);

    // Form_Load: builds the screen's state from the records. Called once by
    // whoever shows the screen, before it is shown.
    virtual void load() {}

    Context& ctx;

    // The bar: three arrays of the same indices, prepared hidden.
    std::map<int, ClickLabel*> bt_prog;
    std::map<int, QLabel*> im_prog;
    std::map<int, ClickLabel*> li_prog;
    // Makes slots 0..count-1 of the bar, hidden, slot 0 at firstSlot and each
    // next slot `step` pixels to the right; every slot is barSlotSize.
    void prepareBar(int count, QPoint firstSlot, int step);
    static constexpr QSize barSlotSize{80, 76};

    // The frame pieces, made by pose_cadre.
    std::map<int, QLabel*> ccb;

    // Runs when a slot of the bar (or its caption) is clicked.
    virtual void bt_prog_Click(int /*index*/) {}
    // What the bar's click events call: bt_prog_Click inside the one guard
    // that keeps a failure from unwinding through Qt's event machinery (an
    // untrapped failure is the run-time error of the suite: ctx.ui.fatal).
    void clickSlot(int index);
    // The same guard around any other event of the screen: a click on a
    // control, a timer's tick.
    void guard(const std::function<void()>& event);

    // The window's close from the window system (its title bar's button,
    // Alt+F4, the session ending) is the screen's own way of cancelling: this
    // runs it once the close event is over. By default the screen unloads and
    // writes nothing; a screen with a cancel of its own states it here.
    virtual void closeRequested() { close(); }

    // Makes a child control with its name.
    template <class W>
    W* make(const QString& objectName, QWidget* parent = nullptr) {
        auto* w = new W(parent ? parent : this);
        w->setObjectName(objectName);
        return w;
    }

  protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    bool cancelPending_ = false;
};
