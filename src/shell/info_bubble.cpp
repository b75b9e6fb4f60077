#include "shell/info_bubble.h"

#include <QMouseEvent>

#include "shell/colours.h"
#include "shell/context.h"
#include "shell/image_banks.h"
#include "shell/placing.h"
#include "store/failure.h"
#include "store/numeric.h"

namespace {
const QSize panelSize{460, 124};
constexpr int lampSize = 14;
constexpr int lampStep = 22;
constexpr int animationMs = 120;
constexpr int defaultDurationMs = 300;

// Guards a timer or change routine: a bubble never stops the program.
template <class F>
void quietly(F&& statement) {
    try {
        statement();
    } catch (const std::exception&) {
    }
}
}  // namespace

infoobulle::infoobulle(Context& context) : Screen(context, QStringLiteral("infoobulle")) {
    setWindowFlags(Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_StyledBackground);
    setStyleSheet(
        QStringLiteral("#infoobulle { background: #fff8e1; border: 2px solid #c77800;"
                       " border-radius: 0px; }"));
    resize(panelSize);

    Image1_ = make<QLabel>(QStringLiteral("Image1"));
    Image1_->setGeometry(16, 18, 48, 48);
    Image1_->setPixmap(ctx.icc().p11Picture(99));

    Label1_ = make<ClickLabel>(QStringLiteral("Label1"));
    Label1_->setGeometry(74, 10, panelSize.width() - 74 - 34, 72);
    Label1_->setWordWrap(true);
    Label1_->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    QFont textFont(QStringLiteral("Arial"), 11);
    textFont.setBold(true);
    Label1_->setFont(textFont);
    Label1_->setStyleSheet(QStringLiteral("color: #4e2a00;"));
    connect(Label1_, &ClickLabel::clicked, this, [this] { hide(); });

    Label2_ = make<ClickLabel>(QStringLiteral("Label2"));
    Label2_->setGeometry(panelSize.width() - 30, 6, 24, 24);
    Label2_->setAlignment(Qt::AlignCenter);
    Label2_->setText(QStringLiteral("\u00D7"));
    Label2_->setFont(QFont(QStringLiteral("Arial"), 14, QFont::Bold));
    Label2_->setStyleSheet(QStringLiteral("color: #8d5a00;"));
    Label2_->setToolTip(QStringLiteral("Fermer"));
    connect(Label2_, &ClickLabel::clicked, this, [this] { Label2_Click(); });

    Label4_ = make<QLabel>(QStringLiteral("Label4"));
    Label4_->hide();
    tppp_ = make<QLabel>(QStringLiteral("tppp"));
    tppp_->hide();

    Frame2_ = make<QWidget>(QStringLiteral("Frame2"));
    Frame2_->resize(8 * lampStep - (lampStep - lampSize), lampSize);
    for (int k = 0; k < 8; ++k) {
        auto* lamp = make<QLabel>(arrayName(QStringLiteral("Shape1"), k), Frame2_);
        lamp->setGeometry(k * lampStep, 0, lampSize, lampSize);
        lamps_[size_t(k)] = lamp;
        setLamp(k, k % 2 ? resetColourB : resetColourA);
    }

    Timer1_ = new QTimer(this);
    Timer1_->setObjectName(QStringLiteral("Timer1"));
    connect(Timer1_, &QTimer::timeout, this, [this] { quietly([this] { Timer1_Timer(); }); });
    Timer2_ = new QTimer(this);
    Timer2_->setObjectName(QStringLiteral("Timer2"));
    Timer2_->setInterval(animationMs);
    connect(Timer2_, &QTimer::timeout, this, [this] { quietly([this] { Timer2_Timer(); }); });
}

void infoobulle::load() {
    centre_ecran(*this);
    Frame2_->move(74, panelSize.height() - lampSize - 14);
}

void infoobulle::bulle(const QString& texte, const QString& mode) {
    if (mode == QLatin1String("1"))
        setLabel1(texte);
    else if (mode == QLatin1String("2"))
        setLabel1(
            QStringLiteral("Problème avec l'imprimante ticket usb, vérifiez qu'elle est en "
                           "allumée !"));
    else if (mode == QLatin1String("3"))
        setLabel1(
            QStringLiteral("Probleme d'impression sur l'imprimante ticket vérifiez les "
                           "parametres (N° Port,...) !"));
    else if (mode == QLatin1String("4"))
        setLabel1(
            QStringLiteral("Probleme d'ouverture du tiroir, vérifiez les parametres (N° "
                           "Port,...) !"));
    // A blank text has hidden the panel already and keeps it hidden.
    if (mode == QLatin1String("0") || Label1_->text().trimmed().isEmpty()) {
        hide();
    } else {
        show();
        raise();
    }
    ctx.ui.letEventsRun();
}

// Label1 raises its change only when its text really changes.
void infoobulle::setLabel1(const QString& text) {
    if (Label1_->text() == text) return;
    Label1_->setText(text);
    quietly([this] { Label1_Change(); });
}

void infoobulle::Label1_Change() {
    if (Label1_->text().trimmed().isEmpty()) {
        hide();
        return;
    }
    const int duration =
        Label4_->text().isEmpty() ? defaultDurationMs : toInt32(numericValue(tppp_->text()));
    if (duration > 0)
        Timer1_->start(duration);
    else
        Timer1_->stop();
    affiche_shh(step_);
    show();
    raise();
}

// The countdown is never loaded, so the first tick hides the panel; the timer
// goes on and hides it again at each tick it finds it shown.
void infoobulle::Timer1_Timer() {
    hide();
}

void infoobulle::Timer2_Timer() {
    step_ += direction_;
    if (step_ >= 7) direction_ = -1;
    if (step_ <= 1) direction_ = 1;
    affiche_shh(step_);
}

void infoobulle::affiche_shh(int step) {
    for (int k = 0; k < 8; ++k) setLamp(k, lampColours[size_t((k + step) % 8)]);
}

void infoobulle::setLamp(int index, int colourNumber) {
    lamps_[size_t(index)]->setStyleSheet(
        QStringLiteral("background: %1; border: 1px solid #6d4c00; border-radius: %2px;")
            .arg(colourFromNumber(colourNumber).name())
            .arg(lampSize / 2));
    lamps_[size_t(index)]->setProperty("colourNumber", colourNumber);
}

void infoobulle::Label2_Click() {
    Timer1_->stop();
    Timer1_->setInterval(0);
    Timer2_->stop();
    Timer2_->setInterval(0);
    for (int k = 0; k < 8; ++k) setLamp(k, k % 2 ? resetColourB : resetColourA);
    Label1_->setText(QString());
    hide();
}

void infoobulle::showEvent(QShowEvent* event) {
    Screen::showEvent(event);
    if (Timer2_->interval() > 0 && !Timer2_->isActive()) Timer2_->start();
}

void infoobulle::hideEvent(QHideEvent* event) {
    Screen::hideEvent(event);
    Timer2_->stop();  // the animation is not seen while hidden
}

void infoobulle::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) hide();
    Screen::mouseReleaseEvent(event);
}

void bulle(Context& ctx, const QString& texte, const QString& mode) {
    Icc& icc = ctx.icc();
    if (!icc.bubble) {
        icc.bubble = std::make_unique<infoobulle>(ctx);
        icc.bubble->load();
    }
    icc.bubble->bulle(texte, mode);
}
