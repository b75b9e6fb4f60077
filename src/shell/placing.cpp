#include "shell/placing.h"

#include <QEvent>
#include <QMargins>
#include <QScreen>
#include <QWidget>
#include <QWindow>
#include <functional>

#include "shell/context.h"
#include "shell/image_banks.h"
#include "shell/screen.h"

namespace {
constexpr int cornerSize = 480 / twipsPerPixel;

int screenWidthOf(const QWidget& form) {
    const QScreen* screen = form.screen();
    return screen ? screen->geometry().width() : designWidth;
}

// The frame that the window system gives a framed window, learnt once from a
// window made for that purpose and never shown (nothing where the window
// system frames a window only once it is shown).
QMargins usualFrame() {
    static const QMargins frame = [] {
        QWidget probe;
        probe.winId();  // makes the window, unshown
        return probe.windowHandle() ? probe.windowHandle()->frameMargins() : QMargins();
    }();
    return frame;
}

// The window system's frame around the window (title bar and borders): the
// window's own once it exists, the usual one before.
QMargins frameOf(const QWidget& form) {
    if (!form.isWindow()) return {};
    if (const QWindow* window = form.windowHandle()) return window->frameMargins();
    return form.windowFlags() & Qt::FramelessWindowHint ? QMargins() : usualFrame();
}

// Places the window again when the window system makes its frame known or
// changes it (as the window is made, or framed once shown), so that the outer
// size and place stay those asked for; a window that the user moves stays
// moved.
class FrameWatcher : public QObject {
  public:
    FrameWatcher(QWidget& form, std::function<void()> place)
        : QObject(&form), form_(form), place_(std::move(place)), used_(frameOf(form)) {
        form.installEventFilter(this);
    }
    void placeNow() {
        used_ = frameOf(form_);
        place_();
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        const QEvent::Type type = event->type();
        if (watched == &form_ &&
            (type == QEvent::WinIdChange || type == QEvent::Show || type == QEvent::Move ||
             type == QEvent::Resize) &&
            frameOf(form_) != used_)
            placeNow();
        return false;
    }

  private:
    QWidget& form_;
    std::function<void()> place_;
    QMargins used_;
};

// Puts the frame's top left corner there (move() takes a window's place as
// its frame's until the window is made, then through the window itself).
void moveFrameTo(QWidget& form, QPoint at) {
    QWindow* window = form.isWindow() ? form.windowHandle() : nullptr;
    if (window && form.testAttribute(Qt::WA_WState_Created))
        window->setFramePosition(at);
    else
        form.move(at);
}

// Runs the placing now and again whenever the frame changes; the last
// placing asked for wins.
void keepPlaced(QWidget& form, std::function<void()> place) {
    const QObjectList children = form.children();
    for (QObject* child : children)
        if (auto* watcher = dynamic_cast<FrameWatcher*>(child)) delete watcher;
    (new FrameWatcher(form, std::move(place)))->placeNow();
}
}  // namespace

void place_ecran(QWidget& form) {
    place_ecran(form, screenWidthOf(form));
}

// Width and Height are the window's own, its frame included: the title bar
// and borders come out of the design size, never on top of it, so a 1024 by
// 768 display keeps its bottom free for the task bar. The position is the
// frame's, as move() takes it.
void place_ecran(QWidget& form, int screenWidth) {
    keepPlaced(form, [&form, screenWidth] {
        const QMargins frame = frameOf(form);
        form.resize(designWidth - frame.left() - frame.right(),
                    designHeight - frame.top() - frame.bottom());
        moveFrameTo(form, QPoint((screenWidth - designWidth) / 2, 0));
    });
    form.raise();
}

void centre_ecran(QWidget& form) {
    centre_ecran(form, screenWidthOf(form));
}

// The size stays; the dialog is centred by its outer size, frame included.
void centre_ecran(QWidget& form, int screenWidth) {
    keepPlaced(form, [&form, screenWidth] {
        const QMargins frame = frameOf(form);
        const int width = form.width() + frame.left() + frame.right();
        const int height = form.height() + frame.top() + frame.bottom();
        moveFrameTo(form, QPoint((screenWidth - width) / 2, (designHeight - height) / 2));
    });
}

void pose_cadre(Screen& form) {
    const int w = form.width();
    const int h = form.height();
    const int c = cornerSize;
    struct Piece {
        QPoint at;
        QSize size;  // empty: the picture's own size (the corners)
    };
    const Piece pieces[8] = {
        {{0, 0}, {}},
        {{w - c, 0}, {}},
        {{w - c, h - c}, {}},
        {{0, h - c}, {}},
        {{0, c}, {c, h - 2 * c}},
        {{c, 0}, {w - 2 * c, c}},
        {{w - c, c}, {c, h - 2 * c}},
        {{c, h - c}, {w - 2 * c, c}},
    };
    Icc& icc = form.ctx.icc();
    for (int i = 0; i < 8; ++i) {
        QLabel*& piece = form.ccb[i];
        if (!piece) {
            piece = form.make<QLabel>(arrayName(QStringLiteral("ccb"), i));
            piece->setScaledContents(true);
            piece->setAttribute(Qt::WA_TransparentForMouseEvents);
        }
        const QPixmap& picture = icc.ccb.at(i);
        piece->setPixmap(picture);
        piece->setGeometry(
            QRect(pieces[i].at, pieces[i].size.isEmpty() ? picture.size() : pieces[i].size));
        piece->show();
        piece->lower();
    }
}
