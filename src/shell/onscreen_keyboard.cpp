#include "shell/onscreen_keyboard.h"

#include <QKeyEvent>
#include <QPushButton>

#include "shell/button_bar.h"
#include "shell/context.h"
#include "shell/entry_box.h"
#include "shell/placing.h"

namespace {
constexpr int keyWidth = 50;
constexpr int keyHeight = 46;
constexpr int keyStep = 54;
constexpr int rowStep = 52;
constexpr int left = 40;
constexpr int keysTop = 104;
constexpr int columns = 10;
const QSize panel{left * 2 + columns * keyStep - 4, 468};

const char* const keyStyle =
    "QPushButton { background: qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 #ffffff,"
    " stop:1 #d7dde4); border: 1px solid #8a99ab; border-radius: 7px; color: #263238;"
    " font: bold 15pt 'Arial'; }"
    "QPushButton:pressed { background: #b9c7d6; }"
    "QPushButton:checked { background: #9fbde0; }";
}  // namespace

OnScreenKeyboard::OnScreenKeyboard(Context& context) : Screen(context, QStringLiteral("clavier")) {
    setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint);
    setAutoFillBackground(true);
    QPalette background = palette();
    background.setColor(QPalette::Window, QColor(0xF4, 0xF6, 0xF9));
    setPalette(background);
    setStyleSheet(QString::fromLatin1(keyStyle));
    resize(panel);

    Label1_ = make<QLabel>(QStringLiteral("Label1"));
    Label1_->setGeometry(left, 18, panel.width() - 2 * left, 30);
    Label1_->setAlignment(Qt::AlignCenter);
    Label1_->setFont(QFont(QStringLiteral("Arial"), 12));
    Text1_ = make<EntryBox>(QStringLiteral("Text1"));
    Text1_->setGeometry(left, 54, panel.width() - 2 * left, 36);
    Text1_->setFont(QFont(QStringLiteral("Arial"), 14));

    const QString rows[] = {QStringLiteral("1234567890"), QStringLiteral("azertyuiop"),
                            QStringLiteral("qsdfghjklm"), QStringLiteral("wxcvbnéèàç")};
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < columns; ++column) {
            const QString character = rows[row].mid(column, 1);
            QPushButton* key = addKey(arrayName(QStringLiteral("touche"), row * columns + column),
                                      character.toUpper(), column, row, 1);
            connect(key, &QPushButton::clicked, this, [this, key] { type(key->text()); });
            if (row > 0) letters_.push_back(key);
        }
    }
    QPushButton* shift = addKey(QStringLiteral("Maj"), QStringLiteral("Maj"), 0, 4, 2);
    shift->setCheckable(true);
    connect(shift, &QPushButton::clicked, this, [this] { toggleShift(); });
    QPushButton* space = addKey(QStringLiteral("Espace"), QString(), 2, 4, 6);
    connect(space, &QPushButton::clicked, this, [this] { type(QStringLiteral(" ")); });
    QPushButton* back = addKey(QStringLiteral("Effacer"), QStringLiteral("\u2190"), 8, 4, 2);
    connect(back, &QPushButton::clicked, this, [this] { Text1_->backspace(); });

    const int barTop = panel.height() - barSlotSize.height() - 16;
    prepareBar(2, QPoint(panel.width() / 2 - barSlotSize.width() - 6, barTop),
               barSlotSize.width() + 12);
    toggleShift();  // letters start in capitals, as the suite's records hold them
}

QPushButton* OnScreenKeyboard::addKey(const QString& name, const QString& caption, int column,
                                      int row, int span) {
    auto* key = make<QPushButton>(name);
    key->setText(caption);
    key->setFocusPolicy(Qt::NoFocus);
    key->setGeometry(left + column * keyStep, keysTop + row * rowStep,
                     span * keyStep - (keyStep - keyWidth), keyHeight);
    return key;
}

void OnScreenKeyboard::load() {
    const QString given = ctx.msg_dialogue;
    const qsizetype bar = given.indexOf(QLatin1Char('|'));
    Label1_->setText(bar < 0 ? given : given.left(bar));
    given_ = bar < 0 ? QString() : given.mid(bar + 1);
    Text1_->setText(given_);
    Text1_->setFocus();
    cree_bouton(*this, QStringLiteral("000:129:Annuler"));
    cree_bouton(*this, QStringLiteral("001:124:Valider"));
    pose_cadre(*this);
    centre_ecran(*this);
}

void OnScreenKeyboard::type(const QString& text) {
    Text1_->insert(text);
    Text1_->setFocus();
}

void OnScreenKeyboard::toggleShift() {
    shift_ = !shift_;
    if (auto* shift = findChild<QPushButton*>(QStringLiteral("Maj"))) shift->setChecked(shift_);
    for (QPushButton* key : letters_)
        key->setText(shift_ ? key->text().toUpper() : key->text().toLower());
}

void OnScreenKeyboard::bt_prog_Click(int index) {
    if (index == 0) finish(given_);
    if (index == 1) finish(Text1_->text());
}

void OnScreenKeyboard::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        finish(given_);
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        finish(Text1_->text());
    else
        Screen::keyPressEvent(event);
}

void OnScreenKeyboard::finish(const QString& value) {
    ctx.msg_dialogue = value;
    close();
}
