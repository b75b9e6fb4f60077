// form97 driven through its real controls: the slots each kind shows, the
// prefixes, every reply, the entry box's keys, the pointer and the keyboard.
#include <QCheckBox>
#include <QClipboard>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

#include "shell/fonts.h"
#include "shell/image_banks.h"
#include "shell/prompt_dialog.h"
#include "shell_test_support.h"

namespace {
// "4:Non 6:Oui": the visible slots with their captions, in slot order.
QString visibleSlots(form97& dialog) {
    QStringList shown;
    for (const auto& [n, face] : dialog.bt_prog) {
        if (face->isHidden()) continue;
        const bool whole = !dialog.im_prog[n]->isHidden() && !dialog.li_prog[n]->isHidden();
        shown << QStringLiteral("%1:%2%3").arg(n).arg(dialog.li_prog[n]->text(),
                                                      whole ? QString() : QStringLiteral("!"));
    }
    return shown.join(QLatin1Char(' '));
}

template <class W>
W* control(QWidget& form, const char* name) {
    return form.findChild<W*>(QString::fromLatin1(name));
}

struct Loaded {
    explicit Loaded(TestContext& t, const QString& msg, int kind) : dialog(t.ctx) {
        t.ctx.msg_dialogue = msg;
        t.ctx.retour_dialogue = kind;
        dialog.load();
        dialog.show();
    }
    form97 dialog;
};
}  // namespace

class PromptDialogTest : public QObject {
    Q_OBJECT
  private slots:
    void initTestCase() { installFonts(); }
    void slotsOfEachKind_data();
    void slotsOfEachKind();
    void prefixes_data();
    void prefixes();
    void replies_data();
    void replies();
    void entryDropsControlCharacters();
    void pointerIsArrowThenDefault();
    void keyboard_data();
    void keyboard();
    void wholeCallThroughTheContext();
};

void PromptDialogTest::slotsOfEachKind_data() {
    QTest::addColumn<QString>("msg");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("slotsShown");
    QTest::addColumn<QString>("text1");
    QTest::addColumn<int>("kindAfter");
    QTest::addColumn<QString>("entry");  // Text2 when shown, "-" when hidden

    QTest::newRow("inform") << "Votre imprimante est configurée !" << 0 << "1:Valider"
                            << "Votre imprimante est configurée !" << 0 << "-";
    QTest::newRow("inform then go on") << "Suite" << -1 << "1:Suite"
                                       << "Suite" << -1 << "-";
    QTest::newRow("confirm or enter") << "Texte" << 1 << "5:Annuler 6:Valider"
                                      << "Texte" << 1 << "-";
    QTest::newRow("confirm") << "Sûr ?" << 4 << "4:Annuler 6:Valider"
                             << "Sûr ?" << 4 << "-";
    QTest::newRow("yes or no") << "ON|Voulez vous une impression en gras ?" << 4 << "4:Non 6:Oui"
                               << "Voulez vous une impression en gras ?" << 4 << "-";
    QTest::newRow("yes-no text as information")
        << "ON|Voulez vous une impression en gras ?" << 0 << "1:Valider"
        << "Voulez vous une impression en gras ?" << 0 << "-";
    QTest::newRow("buttons named by the caller")
        << "Quel ticket ?#MKM#099:Ticket1|106:Tiroir2|" << -4 << "1:Annuler 7:Ticket 8:Tiroir"
        << "Quel ticket ?" << -4 << "-";
    QTest::newRow("at most five named buttons")
        << "X#MKM#124:Aa|124:Bb|124:Cc|124:Dd|124:Ee|124:Ff|" << -4
        << "1:Annuler 7:A 8:B 9:C 10:D 11:E"
        << "X" << -4 << "-";
    QTest::newRow("box mode") << "Note|abc" << -654 << "4:Annuler 6:Valider"
                              << "Note" << 4 << "-";
    QTest::newRow("box mode yes or no") << "ON|Note|v" << -654 << "4:Non 6:Oui"
                                        << "Note" << 4 << "-";
    QTest::newRow("other kind has no slot") << "Attente" << 3 << ""
                                            << "Attente" << 3 << "-";
    QTest::newRow("128 is not above 128") << "a|b" << 128 << ""
                                          << "a|b" << 128 << "-";
    QTest::newRow("entry") << "Nombre de lignes|9" << 129 << "2:Clavier 5:Annuler 6:Valider"
                           << "Nombre de lignes" << 1 << "9";
    QTest::newRow("entry without value") << "Nom" << 129 << "2:Clavier 5:Annuler 6:Valider"
                                         << "Nom" << 1 << "";
    QTest::newRow("entry splits at the first bar")
        << "Code|1|2" << 129 << "2:Clavier 5:Annuler 6:Valider"
        << "Code" << 1 << "1|2";
    QTest::newRow("invoice offset") << "Décalage|0" << 1129 << "2:Clavier 5:Annuler 6:Valider"
                                    << "Décalage" << 1 << "0";
    QTest::newRow("entry on a question") << "Code|7" << 132 << "2:Clavier 4:Annuler 6:Valider"
                                         << "Code" << 4 << "7";
    QTest::newRow("10000 and 1000 are taken off") << "Q" << 11004 << "4:Annuler 6:Valider"
                                                  << "Q" << 4 << "-";
    QTest::newRow("password entry") << "Mot de passe|" << 100129 << "2:Clavier 5:Annuler 6:Valider"
                                    << "Mot de passe" << 1 << "";
    QTest::newRow("bar kept below 129") << "a|b" << 4 << "4:Annuler 6:Valider"
                                        << "a|b" << 4 << "-";
    QTest::newRow("search") << "*Chercher" << 0 << "1:Valider 3:Recherc."
                            << "Chercher" << 0 << "-";
    QTest::newRow("printer selection") << "}Imprimante" << 0 << "0:Sel.Impr 1:Valider"
                                       << "Imprimante" << 0 << "-";
    QTest::newRow("search then printer") << "*}x" << 0 << "0:Sel.Impr 1:Valider 3:Recherc."
                                         << "x" << 0 << "-";
    QTest::newRow("printer before search keeps the star") << "}*x" << 0 << "0:Sel.Impr 1:Valider"
                                                          << "*x" << 0 << "-";
    QTest::newRow("prefixes in their order")
        << "#COU#012 #A#ON|*Texte" << 4 << "3:Recherc. 4:Non 6:Oui"
        << "Texte" << 4 << "-";
}

void PromptDialogTest::slotsOfEachKind() {
    QFETCH(QString, msg);
    QFETCH(int, kind);
    QFETCH(QString, slotsShown);
    QFETCH(QString, text1);
    QFETCH(int, kindAfter);
    QFETCH(QString, entry);
    TestContext t;
    Loaded l(t, msg, kind);
    QCOMPARE(visibleSlots(l.dialog), slotsShown);
    QCOMPARE(control<QLabel>(l.dialog, "Text1")->text(), text1);
    QCOMPARE(l.dialog.kind(), kindAfter);
    auto* text2 = control<QLineEdit>(l.dialog, "Text2");
    QCOMPARE(text2->isVisible() ? text2->text() : QStringLiteral("-"), entry);
    if (text2->isVisible()) {
        QCOMPARE(text2->selectedText(), text2->text());
        QCOMPARE(text2->echoMode(), kind > 100000 ? QLineEdit::Password : QLineEdit::Normal);
    }
    auto* text3 = control<QLineEdit>(l.dialog, "Text3");
    QCOMPARE(text3->isVisible(), kind == -654);
    QCOMPARE(control<QLabel>(l.dialog, "Label2")->text(),
             kind == -654 ? QStringLiteral("BOX") : QString());
    if (kind == -654) QCOMPARE(text3->text(), msg.mid(msg.lastIndexOf(QLatin1Char('|')) + 1));
    // Every visible slot lies inside the dialog, none over another.
    QRect previous;
    for (const auto& [n, face] : l.dialog.bt_prog) {
        if (face->isHidden()) continue;
        QVERIFY(l.dialog.rect().contains(face->geometry()));
        QVERIFY(!face->geometry().intersects(previous));
        previous = face->geometry();
    }
}

void PromptDialogTest::prefixes_data() {
    QTest::addColumn<QString>("msg");
    QTest::addColumn<QString>("text1");
    QTest::addColumn<QString>("colour");  // "" for the default
    QTest::addColumn<int>("pointSize");   // 0 for the default
    QTest::addColumn<bool>("leftAligned");
    QTest::addColumn<int>("tick");  // -1: no tick box
    QTest::addColumn<QString>("tickCaption");

    QTest::newRow("colour") << "#COU#012 Attention"
                            << "Attention"
                            << "#ff0000" << 0 << false << -1 << "";
    QTest::newRow("colour out of the palette is skipped") << "#COU#099 Texte"
                                                          << "Texte"
                                                          << "" << 0 << false << -1 << "";
    QTest::newRow("font size") << "#POL#020 Grand"
                               << "Grand"
                               << "" << 20 << false << -1 << "";
    QTest::newRow("colour then size") << "#COU#001 #POL#014 Bleu"
                                      << "Bleu"
                                      << "#000080" << 14 << false << -1 << "";
    QTest::newRow("size before colour leaves the colour prefix") << "#POL#014 #COU#001 X"
                                                                 << "#COU#001 X"
                                                                 << "" << 14 << false << -1 << "";
    QTest::newRow("left aligned") << "#A#Gauche"
                                  << "Gauche"
                                  << "" << 0 << true << -1 << "";
    QTest::newRow("tick box ticked") << "Question#MKM#1 Ne plus demander"
                                     << "Question"
                                     << "" << 0 << false << 1 << "Ne plus demander";
    QTest::newRow("tick box empty") << "Q#MKM#0 Case"
                                    << "Q"
                                    << "" << 0 << false << 0 << "Case";
    QTest::newRow("blank tail shows no tick box") << "Q#MKM#   "
                                                  << "Q"
                                                  << "" << 0 << false << -1 << "";
    QTest::newRow("tail found anywhere") << "#A#Avant#MKM#1 Apres"
                                         << "Avant"
                                         << "" << 0 << true << 1 << "Apres";
}

void PromptDialogTest::prefixes() {
    QFETCH(QString, msg);
    QFETCH(QString, text1);
    QFETCH(QString, colour);
    QFETCH(int, pointSize);
    QFETCH(bool, leftAligned);
    QFETCH(int, tick);
    QFETCH(QString, tickCaption);
    TestContext t;
    form97 plain(t.ctx);
    auto* reference = control<QLabel>(plain, "Text1");
    Loaded l(t, msg, 0);
    auto* label = control<QLabel>(l.dialog, "Text1");
    QCOMPARE(label->text(), text1);
    const QColor shown = label->palette().color(QPalette::WindowText);
    QCOMPARE(shown.name(),
             colour.isEmpty() ? reference->palette().color(QPalette::WindowText).name() : colour);
    QCOMPARE(label->font().pointSize(), pointSize ? pointSize : reference->font().pointSize());
    QCOMPARE(bool(label->alignment() & Qt::AlignLeft), leftAligned);
    auto* oui = control<QLabel>(l.dialog, "oui");
    QCOMPARE(oui->isVisible(), tick >= 0);
    if (tick < 0) return;
    QCOMPARE(int(control<QCheckBox>(l.dialog, "Check1")->checkState()), tick);
    QVERIFY(samePicture(oui->pixmap(), t.ctx.icc().oui.at(tick)));
    QCOMPARE(control<QLabel>(l.dialog, "Label3")->text(), tickCaption);
    // A click on the box or its caption turns it over.
    QTest::mouseClick(control<QLabel>(l.dialog, "Label3"), Qt::LeftButton);
    QCOMPARE(int(control<QCheckBox>(l.dialog, "Check1")->checkState()), tick ? 0 : 1);
}

void PromptDialogTest::replies_data() {
    QTest::addColumn<QString>("msg");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("typed");   // typed into the entry box first
    QTest::addColumn<QString>("action");  // "slot N", "enter", "escape", "double click"
    QTest::addColumn<int>("retour");
    QTest::addColumn<QString>("message");
    QTest::addColumn<bool>("closed");

    const QString question = QStringLiteral("ON|Voulez vous une impression en gras ?");
    QTest::newRow("Oui") << question << 4 << ""
                         << "slot 6" << 6 << "" << true;
    QTest::newRow("Non") << question << 4 << ""
                         << "slot 4" << 7 << "Voulez vous une impression en gras ?" << true;
    QTest::newRow("information Valider") << question << 0 << ""
                                         << "slot 1" << 1 << "" << true;
    QTest::newRow("Suite") << "Suite" << -1 << ""
                           << "slot 1" << 1 << "" << true;
    QTest::newRow("entry Valider") << "Lignes|9" << 129 << ""
                                   << "slot 6" << 6 << "9" << true;
    QTest::newRow("entry Annuler") << "Lignes|9" << 129 << ""
                                   << "slot 5" << 2 << "" << true;
    QTest::newRow("entry keeps what was typed") << "Lignes|9" << 129 << "  12 "
                                                << "slot 6" << 6 << "  12 " << true;
    QTest::newRow("question Annuler keeps the message") << "a|b" << 4 << ""
                                                        << "slot 4" << 7 << "a|b" << true;
    QTest::newRow("search") << "*Chercher" << 0 << ""
                            << "slot 3" << 1 << "*" << true;
    QTest::newRow("search with entry") << "*Code|ab " << 129 << ""
                                       << "slot 3" << 1 << "ab*" << true;
    QTest::newRow("named button") << "Quel ?#MKM#099:Ticket1|106:Tiroir2|" << -4 << ""
                                  << "slot 8" << 6 << "2" << true;
    QTest::newRow("named buttons Annuler") << "Quel ?#MKM#099:Ticket1|" << -4 << ""
                                           << "slot 1" << 1 << "" << true;
    QTest::newRow("box Valider trims") << "Note| texte " << -654 << ""
                                       << "slot 6" << 6 << "texte" << true;
    QTest::newRow("box Annuler") << "Note|x" << -654 << ""
                                 << "slot 4" << 7 << "Note" << true;
    QTest::newRow("Enter on a question") << "Q" << 4 << ""
                                         << "enter" << 6 << "" << true;
    QTest::newRow("Enter on an entry") << "Lignes|9" << 129 << ""
                                       << "enter" << 6 << "9" << true;
    QTest::newRow("Enter on an information") << "Info" << 0 << ""
                                             << "enter" << 1 << "" << true;
    QTest::newRow("Enter does nothing on Suite") << "Suite" << -1 << ""
                                                 << "enter" << -1 << "Suite" << false;
    QTest::newRow("Enter does nothing in box mode") << "Note|x" << -654 << ""
                                                    << "enter" << -654 << "Note" << false;
    QTest::newRow("Escape") << "Lignes|9" << 129 << ""
                            << "escape" << 2 << "" << true;
    QTest::newRow("Escape leaves a dialog without slots") << "Attente" << 3 << ""
                                                          << "escape" << 2 << "" << true;
    QTest::newRow("double click on an information") << "Info" << 0 << ""
                                                    << "double click" << 7 << "" << true;
    QTest::newRow("double click on a question") << question << 4 << ""
                                                << "double click" << 7 << "" << true;
}

void PromptDialogTest::replies() {
    QFETCH(QString, msg);
    QFETCH(int, kind);
    QFETCH(QString, typed);
    QFETCH(QString, action);
    QFETCH(int, retour);
    QFETCH(QString, message);
    QFETCH(bool, closed);
    TestContext t;
    Loaded l(t, msg, kind);
    QVERIFY(QTest::qWaitForWindowExposed(&l.dialog));
    auto* text2 = control<QLineEdit>(l.dialog, "Text2");
    auto* text3 = control<QLineEdit>(l.dialog, "Text3");
    if (!typed.isEmpty()) QTest::keyClicks(text2, typed);
    // Keys go where the user's keys would: into the visible entry box.
    QWidget* keys = text2->isVisible()   ? static_cast<QWidget*>(text2)
                    : text3->isVisible() ? static_cast<QWidget*>(text3)
                                         : static_cast<QWidget*>(&l.dialog);
    if (action.startsWith(QLatin1String("slot ")))
        QTest::mouseClick(l.dialog.li_prog.at(action.mid(5).toInt()), Qt::LeftButton);
    else if (action == QLatin1String("enter"))
        QTest::keyClick(keys, Qt::Key_Return);
    else if (action == QLatin1String("escape"))
        QTest::keyClick(keys, Qt::Key_Escape);
    else
        QTest::mouseDClick(control<QLabel>(l.dialog, "Text1"), Qt::LeftButton);
    QCOMPARE(t.ctx.retour_dialogue, retour);
    QCOMPARE(t.ctx.msg_dialogue, message);
    QCOMPARE(l.dialog.isVisible(), !closed);
}

void PromptDialogTest::entryDropsControlCharacters() {
    TestContext t;
    Loaded l(t, QStringLiteral("Code|"), 129);
    auto* text2 = control<QLineEdit>(l.dialog, "Text2");
    QApplication::clipboard()->setText(QStringLiteral("COLLE"));
    QTest::keyClicks(text2, QStringLiteral("ab"));
    QKeyEvent paste(QEvent::KeyPress, Qt::Key_V, Qt::ControlModifier, QStringLiteral("\x16"));
    QApplication::sendEvent(text2, &paste);
    QKeyEvent bell(QEvent::KeyPress, Qt::Key_G, Qt::ControlModifier, QStringLiteral("\x07"));
    QApplication::sendEvent(text2, &bell);
    QCOMPARE(text2->text(), QStringLiteral("ab"));
    QTest::keyClick(text2, Qt::Key_Backspace);
    QCOMPARE(text2->text(), QStringLiteral("a"));
    QVERIFY(l.dialog.isVisible());
}

void PromptDialogTest::pointerIsArrowThenDefault() {
    TestContext t;
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    QGuiApplication::setOverrideCursor(Qt::BusyCursor);
    {
        Loaded l(t, QStringLiteral("Q"), 4);
        QVERIFY(QGuiApplication::overrideCursor());
        QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::ArrowCursor);
        QTest::mouseClick(l.dialog.li_prog.at(6), Qt::LeftButton);
        QVERIFY(!QGuiApplication::overrideCursor());
    }
    // Unloaded without a reply, the dialog still gives the default pointer back.
    { Loaded l(t, QStringLiteral("Q"), 3); }
    QVERIFY(!QGuiApplication::overrideCursor());
}

void PromptDialogTest::keyboard_data() {
    QTest::addColumn<QString>("start");
    QTest::addColumn<QStringList>("keys");  // key captions, then the closing slot
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QString>("prompt");

    QTest::newRow("typed in capitals") << "Nom| ab " << QStringList{"X", "É", "Valider"} << "abXÉ"
                                       << "Nom";
    QTest::newRow("small letters and space")
        << "Nom|" << QStringList{"Maj", "à", "Espace", "ç", "9", "Valider"} << "à ç9"
        << "Nom";
    QTest::newRow("backspace") << "Nom|abc" << QStringList{"Effacer", "Effacer", "Valider"} << "a"
                               << "Nom";
    QTest::newRow("Annuler keeps the value") << "Nom|abc" << QStringList{"Z", "Annuler"} << "abc"
                                             << "Nom";
}

void PromptDialogTest::keyboard() {
    QFETCH(QString, start);
    QFETCH(QStringList, keys);
    QFETCH(QString, entry);
    QFETCH(QString, prompt);
    TestContext t;
    Loaded l(t, start, 129);
    QString seenPrompt;
    bool acted = false;
    whenShown(QStringLiteral("clavier"), this, [&](QWidget* keyboard) {
        acted = true;
        seenPrompt = keyboard->findChild<QLabel*>(QStringLiteral("Label1"))->text();
        for (const QString& caption : keys) {
            const QString name = caption == QLatin1String("Effacer") ||
                                         caption == QLatin1String("Espace") ||
                                         caption == QLatin1String("Maj")
                                     ? caption
                                     : QString();
            for (QPushButton* key : keyboard->findChildren<QPushButton*>()) {
                if ((!name.isEmpty() && key->objectName() == name) ||
                    (name.isEmpty() && key->text() == caption)) {
                    QTest::mouseClick(key, Qt::LeftButton);
                    break;
                }
            }
            for (QLabel* slot : keyboard->findChildren<QLabel*>())
                if (slot->objectName().startsWith(QLatin1String("li_prog")) &&
                    slot->text() == caption)
                    QTest::mouseClick(slot, Qt::LeftButton);
        }
    });
    QTest::mouseClick(l.dialog.li_prog.at(2), Qt::LeftButton);
    QVERIFY(acted);
    QCOMPARE(seenPrompt, prompt);
    QVERIFY(!visibleWindow(QStringLiteral("clavier")));
    QCOMPARE(control<QLineEdit>(l.dialog, "Text2")->text(), entry);
    QVERIFY(l.dialog.isVisible());
    // The dialog goes on as usual afterwards.
    QTest::mouseClick(l.dialog.li_prog.at(6), Qt::LeftButton);
    QCOMPARE(t.ctx.retour_dialogue, 6);
    QCOMPARE(t.ctx.msg_dialogue, entry);
}

void PromptDialogTest::wholeCallThroughTheContext() {
    TestContext t;
    bool answered = false;
    whenShown(QStringLiteral("form97"), this, [&](QWidget* window) {
        auto* dialog = qobject_cast<form97*>(window);
        answered = true;
        QTest::mouseClick(dialog->li_prog.at(6), Qt::LeftButton);
    });
    QCOMPARE(t.ctx.form97(QStringLiteral("ON|Le texte apparait-il ?"), 4), 6);
    QVERIFY(answered);
    QVERIFY(!visibleWindow(QStringLiteral("form97")));
}

QTEST_MAIN(PromptDialogTest)
#include "tst_prompt_dialog.moc"
