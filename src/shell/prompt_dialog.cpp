#include "shell/prompt_dialog.h"

#include <QCheckBox>
#include <QGuiApplication>
#include <QInputDialog>
#include <QKeyEvent>

#include "shell/button_bar.h"
#include "shell/colours.h"
#include "shell/context.h"
#include "shell/entry_box.h"
#include "shell/image_banks.h"
#include "shell/modal.h"
#include "shell/onscreen_keyboard.h"
#include "shell/placing.h"
#include "shell/prompt_message.h"
#include "shell/system_printers.h"
#include "store/failure.h"
#include "store/numeric.h"

namespace {
constexpr int slotCount = 12;  // 0 to 11: slots 7 to 11 serve kind -4
constexpr int slotGap = 4;
constexpr int margin = 28;
constexpr int textLeft = 92;
constexpr int textTop = 22;
constexpr int entryTop = 132;
constexpr int tickTop = 176;
constexpr int barBottomMargin = 18;
}  // namespace

form97::form97(Context& context) : Screen(context, QStringLiteral("form97")) {
    setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint);
    setFocusPolicy(Qt::StrongFocus);
    setAutoFillBackground(true);
    QPalette background = palette();
    background.setColor(QPalette::Window, QColor(0xF4, 0xF6, 0xF9));
    setPalette(background);
    resize(designSize);
    buildControls();
}

form97::~form97() {
    if (pointerSet_) restorePointer();
}

void form97::buildControls() {
    const int w = designSize.width();
    Image1_ = make<QLabel>(QStringLiteral("Image1"));
    Image1_->setGeometry(margin, 30, 48, 48);

    Text1_ = make<ClickLabel>(QStringLiteral("Text1"));
    Text1_->setGeometry(textLeft, textTop, w - textLeft - margin, entryTop - 10 - textTop);
    Text1_->setAlignment(Qt::AlignCenter);
    Text1_->setWordWrap(true);
    Text1_->setFont(QFont(QStringLiteral("Arial"), 12));
    connect(Text1_, &ClickLabel::doubleClicked, this, [this] { reply(7, QString()); });

    QFont entryFont(QStringLiteral("Arial"), 12);
    Text2_ = make<EntryBox>(QStringLiteral("Text2"));
    Text2_->setGeometry(textLeft, entryTop, w - textLeft - margin, 32);
    Text2_->setFont(entryFont);
    Text2_->hide();
    Text3_ = make<EntryBox>(QStringLiteral("Text3"));
    Text3_->setGeometry(Text2_->geometry());
    Text3_->setFont(entryFont);
    Text3_->hide();

    Label2_ = make<QLabel>(QStringLiteral("Label2"));
    Label2_->hide();

    Check1_ = make<QCheckBox>(QStringLiteral("Check1"));
    Check1_->setTristate(true);
    Check1_->setGeometry(textLeft, tickTop, 24, 24);
    Check1_->hide();
    oui_ = make<ClickLabel>(QStringLiteral("oui"));
    oui_->setGeometry(textLeft, tickTop, 24, 24);
    oui_->hide();
    Label3_ = make<ClickLabel>(QStringLiteral("Label3"));
    Label3_->setGeometry(textLeft + 30, tickTop, w - textLeft - 30 - margin, 24);
    Label3_->setFont(QFont(QStringLiteral("Arial"), 10));
    Label3_->hide();
    const auto toggle = [this] { setTick(Check1_->checkState() == Qt::Unchecked ? 1 : 0); };
    connect(oui_, &ClickLabel::clicked, this, toggle);
    connect(Label3_, &ClickLabel::clicked, this, toggle);

    prepareBar(slotCount, QPoint(margin, 0), barSlotSize.width() + slotGap);
}

void form97::load() {
    const PromptMessage m = readPromptMessage(ctx.msg_dialogue, ctx.retour_dialogue);
    if (m.colour)
        skip([&] {
            QPalette text = Text1_->palette();
            text.setColor(QPalette::WindowText, paletteColour(*m.colour));
            Text1_->setPalette(text);
        });
    if (m.fontSize)
        skip([&] {
            if (*m.fontSize <= 0) throw Failure(QStringLiteral("Taille de police incorrecte"));
            QFont font = Text1_->font();
            font.setPointSize(*m.fontSize);
            Text1_->setFont(font);
        });
    if (m.tickBox) showTickBox(m.tail);

    pose_cadre(*this);
    centre_ecran(*this);

    if (m.leftAligned) Text1_->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);

    skip([&] { Image1_->setPixmap(pictureOf(ctx.icc().Image1, 2)); });

    QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
    pointerSet_ = true;

    if (m.search) cree_bouton(*this, QStringLiteral("003:127:Recherc."));
    if (m.choosePrinter) cree_bouton(*this, QStringLiteral("000:125:Sel.Impr"));

    boxMode_ = m.boxMode;
    entry_ = m.entry;
    kind_ = m.kind;
    if (m.boxMode) {
        Label2_->setText(QStringLiteral("BOX"));
        Text3_->setText(m.value);
        Text3_->show();
    }
    if (m.password) {
        Text2_->setEchoMode(QLineEdit::Password);
        Text2_->setStyleSheet(QStringLiteral("lineedit-password-character: 42"));
    }
    if (m.entry) {
        Text2_->setText(m.value);
        Text2_->show();
        Text2_->selectAll();
        cree_bouton(*this, QStringLiteral("002:126:Clavier"));
    }

    createKindSlots(m);
    arrangeBar();
    fitMessage();

    ctx.msg_dialogue = m.text;
    Text1_->setText(m.text);
    ctx.ui.letEventsRun();
}

void form97::createKindSlots(const PromptMessage& m) {
    const bool yesNo = m.yesNo;
    switch (kind_) {
        case 0:
            cree_bouton(*this, QStringLiteral("001:124:Valider"));
            break;
        case -1:
            cree_bouton(*this, QStringLiteral("001:128:Suite"));
            break;
        case 1:
            cree_bouton(*this, QStringLiteral("005:129:Annuler"));
            cree_bouton(*this, QStringLiteral("006:124:Valider"));
            break;
        case 4:
            cree_bouton(*this,
                        yesNo ? QStringLiteral("004:129:Non") : QStringLiteral("004:129:Annuler"));
            cree_bouton(*this,
                        yesNo ? QStringLiteral("006:124:Oui") : QStringLiteral("006:124:Valider"));
            break;
        case -4:
            cree_bouton(*this, QStringLiteral("001:108:Annuler"));
            for (const PromptMessage::CallerSlot& slot : m.callerSlots) {
                cree_bouton(*this, slot.definition);
                tags_[slot.slot] = slot.tag;
            }
            break;
        default:
            break;  // no slot: only a key or a double click leaves the dialog
    }
}

// The visible slots stand side by side, centred at the bottom; the dialog
// grows wider when they need more room.
void form97::arrangeBar() {
    std::vector<int> shown;
    for (const auto& [n, face] : bt_prog)
        if (!face->isHidden()) shown.push_back(n);
    const int step = barSlotSize.width() + slotGap;
    const int needed = int(shown.size()) * step - slotGap;
    if (needed > width() - 2 * margin) {
        resize(needed + 2 * margin, height());
        pose_cadre(*this);
        centre_ecran(*this);
    }
    int x = (width() - needed) / 2;
    const int y = height() - barSlotSize.height() - barBottomMargin;
    for (int n : shown) {
        for (QWidget* part : {static_cast<QWidget*>(bt_prog[n]), static_cast<QWidget*>(im_prog[n]),
                              static_cast<QWidget*>(li_prog[n])})
            part->move(x, y);
        x += step;
    }
}

// The message takes the room down to the first control shown below it.
void form97::fitMessage() {
    int bottom = height() - barSlotSize.height() - barBottomMargin;
    if (!oui_->isHidden()) bottom = tickTop;
    if (!Text2_->isHidden() || !Text3_->isHidden()) bottom = entryTop;
    Text1_->setGeometry(textLeft, textTop, width() - textLeft - margin, bottom - 10 - textTop);
}

void form97::showTickBox(const QString& tail) {
    skip([&] { setTick(int(numericValue(tail.left(1)))); });
    Label3_->setText(tail.mid(2));
    oui_->show();
    Label3_->show();
}

void form97::setTick(int value) {
    if (value < 0 || value > 2) throw Failure(QStringLiteral("Valeur de propriété incorrecte"));
    Check1_->setCheckState(Qt::CheckState(value));
    oui_->setPixmap(pictureOf(ctx.icc().oui, value));
}

void form97::bt_prog_Click(int index) {
    const QString typed = boxMode_ ? Text3_->text().trimmed() : Text2_->text().trimmed();
    switch (index) {
        case 0:
            chooseSystemPrinter();
            break;
        case 1:
            reply(1, typed);
            break;
        case 2:
            openKeyboard();
            break;
        case 3:
            reply(1, Text2_->text().trimmed() + QLatin1Char('*'));
            break;
        case 4:
            reply(7, ctx.msg_dialogue);
            break;
        case 5:
            reply(2, QString());
            break;
        case 6:
            reply(6, boxMode_ ? typed : Text2_->text());
            break;
        default:
            if (tags_.count(index)) reply(6, tags_[index]);
            break;
    }
}

void form97::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Escape:
            reply(2, QString());
            return;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (Label2_->text() == QLatin1String("BOX")) return;
            if (kind_ == 4 || kind_ == 1)
                clickSlot(6);
            else if (kind_ == 0)
                clickSlot(1);
            return;
        default:
            Screen::keyPressEvent(event);
    }
}

void form97::showEvent(QShowEvent* event) {
    Screen::showEvent(event);
    activateWindow();
    if (entry_) {
        Text2_->setFocus();
        Text2_->selectAll();
    } else if (boxMode_) {
        Text3_->setFocus();
    } else {
        setFocus();
    }
}

void form97::closeEvent(QCloseEvent* event) {
    Screen::closeEvent(event);
    if (event->isAccepted()) restorePointer();
}

// Closed by the window system, the dialog answers as Escape does.
void form97::closeRequested() {
    reply(2, QString());
}

void form97::restorePointer() {
    while (QGuiApplication::overrideCursor()) QGuiApplication::restoreOverrideCursor();
    pointerSet_ = false;
}

void form97::reply(int retour, const QString& message) {
    ctx.retour_dialogue = retour;
    ctx.msg_dialogue = message;
    close();
}

// The printer chosen among the system's goes into the entry box.
void form97::chooseSystemPrinter() {
    // The system's printers as the platform lists them (a test run lists its own).
    const QStringList names = ctx.platform.printers().names();
    if (names.isEmpty()) return;
    bool chosen = false;
    const QString name =
        QInputDialog::getItem(this, QStringLiteral("Sel.Impr"), QStringLiteral("Imprimante :"),
                              names, qMax(0, int(names.indexOf(Text2_->text()))), false, &chosen);
    if (!chosen) return;
    Text2_->setText(name);
    Text2_->show();
    fitMessage();
}

void form97::openKeyboard() {
    ctx.msg_dialogue = Text1_->text().trimmed() + QLatin1Char('|') + Text2_->text().trimmed();
    OnScreenKeyboard keyboard(ctx);
    keyboard.load();
    runModal(keyboard);
    Text2_->setText(ctx.msg_dialogue);
    Text2_->setFocus();
}
