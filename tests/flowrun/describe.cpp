#include "describe.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QFontInfo>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTextEdit>
#include <QTimer>
#include <functional>

#include "shell/context.h"
#include "shell/image_banks.h"
#include "shell/screen.h"

namespace {

using BankPicture = std::pair<QString, std::function<QPixmap()>>;

// The pictures of the hidden banks by the names the code gives them
// ("icr.bxm(5)", "icc.tclavv"), the theme's first.
std::vector<BankPicture> bankPictures(Context& ctx) {
    std::vector<BankPicture> all;
    const auto array = [&](const char* name, const PictureArray& a, std::initializer_list<int> at) {
        for (int i : at)
            all.emplace_back(QStringLiteral("%1(%2)").arg(QLatin1String(name)).arg(i),
                             [&a, i] { return a.at(i); });
    };
    Icc& icc = ctx.icc();
    array("icr.bxr", ctx.icr().bxr, {0, 1, 2, 3, 4, 5, 13});
    array("icr.bxm", ctx.icr().bxm, {0, 1, 2, 3, 4, 5, 10, 16});
    array("icc.btc", icc.btc, {71});
    array("icc.bt_fonc", icc.bt_fonc, {46});
    array("icc.ccb", icc.ccb, {0, 1, 2, 3, 4, 5, 6, 7});
    array("icc.oui", icc.oui, {0, 1, 2});
    array("icc.Image1", icc.Image1, {2});
    for (int n : barIconNumbers) array("icc.p11", icc.p11, {n});
    all.emplace_back(QStringLiteral("neutral icon"), [&icc] { return icc.p11Picture(-1); });
    all.emplace_back(QStringLiteral("icc.tclavv"), [&icc] { return icc.tclavv; });
    all.emplace_back(QStringLiteral("icc.ticket2"), [&icc] { return icc.ticket2; });
    return all;
}

QString pictureName(const QPixmap& picture, Context& ctx) {
    const QImage image = picture.toImage();
    for (const auto& [name, get] : bankPictures(ctx))
        if (get().toImage() == image) return name;
    return QStringLiteral("%1x%2").arg(picture.width()).arg(picture.height());
}

QString colourNumber(const QColor& c) {
    return QStringLiteral("%1")
        .arg((c.blue() << 16) | (c.green() << 8) | c.red(), 6, 16, QLatin1Char('0'))
        .toUpper();
}

QString alignmentOf(Qt::Alignment a) {
    if (a & Qt::AlignLeft) return QStringLiteral("left");
    if (a & Qt::AlignRight) return QStringLiteral("right");
    return QStringLiteral("centre");
}

}  // namespace

QString valueOf(QObject* w) {
    if (auto* e = qobject_cast<QLineEdit*>(w)) return e->text();
    if (auto* c = qobject_cast<QComboBox*>(w)) return c->currentText();
    if (auto* b = qobject_cast<QCheckBox*>(w))  // the suite's 0, 1 and 2 (grey)
        return b->checkState() == Qt::Checked            ? QStringLiteral("1")
               : b->checkState() == Qt::PartiallyChecked ? QStringLiteral("2")
                                                         : QStringLiteral("0");
    if (auto* r = qobject_cast<QRadioButton*>(w)) return r->isChecked() ? "1" : "0";
    if (auto* l = qobject_cast<QLabel*>(w)) return l->text();
    if (auto* t = qobject_cast<QPlainTextEdit*>(w)) return t->toPlainText();
    if (auto* t = qobject_cast<QTextEdit*>(w)) return t->toPlainText();
    if (auto* b = qobject_cast<QAbstractButton*>(w)) return b->text();
    if (auto* l = qobject_cast<QListWidget*>(w))
        return l->currentItem() ? l->currentItem()->text() : QString();
    if (auto* t = qobject_cast<QTimer*>(w))
        return QStringLiteral("%1 ms, %2")
            .arg(t->interval())
            .arg(t->isActive() ? "running" : "stopped");
    if (auto* screen = qobject_cast<QWidget*>(w); screen && screen->isWindow())
        return screen->windowTitle();
    return QString();
}

std::optional<QString> lookAtBank(const QString& name, Context& ctx) {
    for (const auto& [bankName, get] : bankPictures(ctx)) {
        if (bankName != name) continue;
        const QPixmap picture = get();
        // The first picture of the same pixels, when another name has it.
        const QString same = pictureName(picture, ctx);
        return QStringLiteral("picture ") +
               (same == name
                    ? QStringLiteral("of its own, %1x%2").arg(picture.width()).arg(picture.height())
                    : same);
    }
    return std::nullopt;
}

QString lookOf(QWidget* w, Context& ctx) {
    w->ensurePolished();
    // A window stands where its frame does and measures its frame, as the
    // screens place it.
    const QRect at = w->isWindow() ? w->frameGeometry() : QRect(w->pos(), w->size());
    QStringList parts{
        QStringLiteral("at %1,%2 %3x%4").arg(at.x()).arg(at.y()).arg(at.width()).arg(at.height())};
    if (w->isHidden()) parts << QStringLiteral("hidden");
    if (!w->isEnabled()) parts << QStringLiteral("disabled");
    auto* label = qobject_cast<QLabel*>(w);
    auto* edit = qobject_cast<QLineEdit*>(w);
    // How its text is drawn, for a control that shows one.
    if ((label && !label->text().isEmpty()) || edit || qobject_cast<QAbstractButton*>(w) ||
        qobject_cast<QComboBox*>(w)) {
        const QFontInfo font(w->font());
        parts << QStringLiteral("colour %1 font %2 %3%4")
                     .arg(w->palette().color(w->foregroundRole()).name(), font.family())
                     .arg(font.pointSize())
                     .arg(font.bold() ? QStringLiteral(" bold") : QString());
        if (label || edit) parts << alignmentOf(label ? label->alignment() : edit->alignment());
    }
    // Colours as the suite numbers them: blue, green, red, six hex digits.
    if (w->autoFillBackground() && !w->isWindow())
        parts << QStringLiteral("back ") + colourNumber(w->palette().color(QPalette::Window));
    if (const QVariant border = w->property("borderColor"); border.isValid())
        parts << QStringLiteral("border ") + colourNumber(border.value<QColor>());
    if (label && !label->pixmap().isNull())
        parts << QStringLiteral("picture ") + pictureName(label->pixmap(), ctx);
    if (edit && edit->echoMode() == QLineEdit::Password) parts << QStringLiteral("password");
    if (edit && edit->hasSelectedText())
        parts << QStringLiteral("selected \"%1\"").arg(edit->selectedText());
    if ((qobject_cast<QAbstractButton*>(w) || qobject_cast<QLineEdit*>(w)) &&
        !(w->focusPolicy() & Qt::TabFocus))
        parts << QStringLiteral("out of the tab order");
    // The first control drawn over it, if any: what stands behind what.
    if (QWidget* parent = w->parentWidget(); parent && !w->isWindow()) {
        const QObjectList siblings = parent->children();
        for (qsizetype k = siblings.indexOf(w) + 1; k < siblings.size(); ++k) {
            auto* other = qobject_cast<QWidget*>(siblings[k]);
            if (other && !other->isHidden() && other->geometry().intersects(w->geometry())) {
                parts << QStringLiteral("under ") + other->objectName();
                break;
            }
        }
    }
    // The control that takes the keys once its window is active (activation
    // itself comes and goes with the window system, and is not told).
    if (w->window()->focusWidget() == w) parts << QStringLiteral("focus");
    if (w->isWindow() && (w->windowFlags() & Qt::FramelessWindowHint))
        parts << QStringLiteral("frameless");
    if (w->isWindow() && w->testAttribute(Qt::WA_ShowWithoutActivating))
        parts << QStringLiteral("shown without taking the focus");
    for (const QByteArray& name : w->dynamicPropertyNames())
        if (!name.startsWith("_q_"))
            parts << QString::fromLatin1(name) + QLatin1Char(' ') + w->property(name).toString();
    return parts.join(QLatin1Char(' '));
}

QString barOf(Screen& screen) {
    QStringList shown;
    QList<QRect> taken;
    for (const auto& [n, face] : screen.bt_prog) {
        if (face->isHidden()) continue;
        QString slot = QStringLiteral("%1:%2").arg(n).arg(screen.li_prog.at(n)->text());
        if (screen.im_prog.at(n)->isHidden()) slot += QStringLiteral(" (no picture)");
        if (screen.li_prog.at(n)->isHidden()) slot += QStringLiteral(" (no caption)");
        if (!screen.rect().contains(face->geometry())) slot += QStringLiteral(" (off the screen)");
        for (const QRect& other : taken)
            if (other.intersects(face->geometry())) slot += QStringLiteral(" (on another slot)");
        taken << face->geometry();
        shown << slot;
    }
    return shown.join(QLatin1Char(' '));
}
