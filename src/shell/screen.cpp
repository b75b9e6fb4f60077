#include "shell/screen.h"

#include <QCloseEvent>
#include <QFont>
#include <QMouseEvent>
#include <exception>

#include "shell/context.h"
#include "shell/placing.h"

void ClickLabel::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        emit clicked();
    QLabel::mouseReleaseEvent(event);
}

void ClickLabel::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) emit doubleClicked();
    QLabel::mouseDoubleClickEvent(event);
}

QString arrayName(const QString& name, int index) {
    return QStringLiteral("%1(%2)").arg(name).arg(index);
}

Screen::Screen(Context& context, const QString& name, QWidget* parent)
    : QWidget(parent), ctx(context) {
    setObjectName(name);
}

void Screen::prepareBar(int count, QPoint firstSlot, int step) {
    QFont captionFont(QStringLiteral("Arial"), 9);
    captionFont.setBold(true);
    for (int n = 0; n < count; ++n) {
        const QRect slot(firstSlot + QPoint(n * step, 0), barSlotSize);

        auto* face = make<ClickLabel>(arrayName(QStringLiteral("bt_prog"), n));
        face->setGeometry(slot);
        face->setScaledContents(true);
        face->hide();

        auto* icon = make<QLabel>(arrayName(QStringLiteral("im_prog"), n));
        icon->setGeometry(slot);
        icon->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
        icon->setContentsMargins(0, 5, 0, 0);
        icon->setAttribute(Qt::WA_TransparentForMouseEvents);
        icon->hide();

        auto* caption = make<ClickLabel>(arrayName(QStringLiteral("li_prog"), n));
        caption->setGeometry(slot);
        caption->setAlignment(Qt::AlignHCenter | Qt::AlignBottom);
        caption->setContentsMargins(2, 0, 2, 5);
        caption->setFont(captionFont);
        caption->hide();

        connect(face, &ClickLabel::clicked, this, [this, n] { clickSlot(n); });
        connect(caption, &ClickLabel::clicked, this, [this, n] { clickSlot(n); });
        bt_prog[n] = face;
        im_prog[n] = icon;
        li_prog[n] = caption;
    }
}

void Screen::clickSlot(int index) {
    guard([&] { bt_prog_Click(index); });
}

void Screen::guard(const std::function<void()>& event) {
    try {
        event();
    } catch (const std::exception& e) {
        ctx.ui.fatal(QString::fromLocal8Bit(e.what()));
    }
}

// A close that the program asks for (close() of its own code) is accepted;
// one from the window system is refused and turned into the screen's cancel,
// run after the event so that the cancel's own close() acts. The window
// never closes behind the screen's back, so a caller always finds the state
// that the screen's cancel leaves.
void Screen::closeEvent(QCloseEvent* event) {
    if (!event->spontaneous()) {
        QWidget::closeEvent(event);
        return;
    }
    event->ignore();
    if (cancelPending_) return;
    cancelPending_ = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            cancelPending_ = false;
            guard([this] { closeRequested(); });
        },
        Qt::QueuedConnection);
}

// The frame follows the window's size, which may change once the window
// system has told the size of its own frame.
void Screen::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (!ccb.empty()) pose_cadre(*this);
}
