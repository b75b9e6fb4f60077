// form97 driven through its real controls: the slots each kind shows, the
// prefixes, every reply, the entry box's keys, the pointer and the keyboard.
#include <QCheckBox>
#include <QClipboard>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

#include "shell/fonts.h"
#include "shell/image_banks.h"
#include "shell/prompt_dialog.h"
#include "support/test_run.h"
#include "support/widgets.h"

namespace {
// "4:Non 6:Oui": the visible slots with their captions, in slot order.
QString visibleSlots(form97& dialog) {
    QStringList shown;
    for (const auto& [n, face] : dialog.bt_prog) {
        if (face->isHidden()) continue;
        const bool whole = !dialog.im_prog[n]->isHidden() && !dialog.li_prog[n]->isHidden();
        shown << QStringLiteral("%1:%2%3").arg(n).arg(dialog.li_prog[n]->text(), whole ? "" : "!");
    }
    return shown.join(QLatin1Char(' '));
}

template <class W>
W* control(QWidget& form, const char* name) {
    return form.findChild<W*>(QString::fromLatin1(name));
}

struct Loaded {
    Loaded(TestRun& t, const QString& msg, int kind) : dialog(t.ctx) {
        t.ctx.msg_dialogue = msg;
        t.ctx.retour_dialogue = kind;
        dialog.load();
        dialog.show();
    }
    form97 dialog;
};

struct SlotRow {
    const char *name, *msg;
    int kind;
    const char *shown, *text1;  // text1 null: the message as it is
    int kindAfter;
    const char* entry;  // Text2 when shown, "-" when hidden
};
const SlotRow slotRows[] = {
    {"inform", "Votre imprimante est configurée !", 0, "1:Valider", nullptr, 0, "-"},
    {"inform then go on", "Suite", -1, "1:Suite", nullptr, -1, "-"},
    {"confirm or enter", "Texte", 1, "5:Annuler 6:Valider", nullptr, 1, "-"},
    {"confirm", "Sûr ?", 4, "4:Annuler 6:Valider", nullptr, 4, "-"},
    {"yes or no", "ON|Gras ?", 4, "4:Non 6:Oui", "Gras ?", 4, "-"},
    {"yes-no text as information", "ON|Gras ?", 0, "1:Valider", "Gras ?", 0, "-"},
    {"buttons named by the caller", "Quel ticket ?#MKM#099:Ticket1|106:Tiroir2|", -4,
     "1:Annuler 7:Ticket 8:Tiroir", "Quel ticket ?", -4, "-"},
    {"at most five named buttons", "X#MKM#124:Aa|124:Bb|124:Cc|124:Dd|124:Ee|124:Ff|", -4,
     "1:Annuler 7:A 8:B 9:C 10:D 11:E", "X", -4, "-"},
    {"box mode", "Note|abc", -654, "4:Annuler 6:Valider", "Note", 4, "-"},
    {"box mode yes or no", "ON|Note|v", -654, "4:Non 6:Oui", "Note", 4, "-"},
    {"other kind has no slot", "Attente", 3, "", nullptr, 3, "-"},
    {"128 is not above 128", "a|b", 128, "", nullptr, 128, "-"},
    {"bar kept below 129", "a|b", 4, "4:Annuler 6:Valider", nullptr, 4, "-"},
    {"entry", "Lignes|9", 129, "2:Clavier 5:Annuler 6:Valider", "Lignes", 1, "9"},
    {"entry without value", "Nom", 129, "2:Clavier 5:Annuler 6:Valider", "Nom", 1, ""},
    {"entry splits at the first bar", "Code|1|2", 129, "2:Clavier 5:Annuler 6:Valider", "Code", 1,
     "1|2"},
    {"invoice offset", "Décalage|0", 1129, "2:Clavier 5:Annuler 6:Valider", "Décalage", 1, "0"},
    {"entry on a question", "Code|7", 132, "2:Clavier 4:Annuler 6:Valider", "Code", 4, "7"},
    {"10000 and 1000 are taken off", "Q", 11004, "4:Annuler 6:Valider", nullptr, 4, "-"},
    {"password entry", "Mot|", 100129, "2:Clavier 5:Annuler 6:Valider", "Mot", 1, ""},
    {"search", "*Chercher", 0, "1:Valider 3:Recherc.", "Chercher", 0, "-"},
    {"printer selection", "}Imprimante", 0, "0:Sel.Impr 1:Valider", "Imprimante", 0, "-"},
    {"search then printer", "*}x", 0, "0:Sel.Impr 1:Valider 3:Recherc.", "x", 0, "-"},
    {"printer before search keeps the star", "}*x", 0, "0:Sel.Impr 1:Valider", "*x", 0, "-"},
    {"prefixes in their order", "#COU#012 #A#ON|*Texte", 4, "3:Recherc. 4:Non 6:Oui", "Texte", 4,
     "-"},
};

struct PrefixRow {
    const char *name, *msg, *text1;
    const char* colour;  // "" for the default
    int pointSize;       // 0 for the default
    bool leftAligned;
    int tick;  // -1: no tick box
    const char* tickCaption;
};
const PrefixRow prefixRows[] = {
    {"colour", "#COU#012 Attention", "Attention", "#ff0000", 0, false, -1, ""},
    {"colour out of the palette is skipped", "#COU#099 Texte", "Texte", "", 0, false, -1, ""},
    {"font size", "#POL#020 Grand", "Grand", "", 20, false, -1, ""},
    {"colour then size", "#COU#001 #POL#014 Bleu", "Bleu", "#000080", 14, false, -1, ""},
    {"size before colour leaves the colour", "#POL#014 #COU#001 X", "#COU#001 X", "", 14, false, -1,
     ""},
    {"left aligned", "#A#Gauche", "Gauche", "", 0, true, -1, ""},
    {"tick box ticked", "Question#MKM#1 Ne plus demander", "Question", "", 0, false, 1,
     "Ne plus demander"},
    {"tick box empty", "Q#MKM#0 Case", "Q", "", 0, false, 0, "Case"},
    {"blank tail shows no tick box", "Q#MKM#   ", "Q", "", 0, false, -1, ""},
    {"tail found anywhere", "#A#Avant#MKM#1 Apres", "Avant", "", 0, true, 1, "Apres"},
};

struct ReplyRow {
    const char *name, *msg;
    int kind;
    const char *typed, *action;  // action: "slot N", "enter", "escape", "double click"
    int retour;
    const char* message;
    bool closed;
};
const ReplyRow replyRows[] = {
    {"Oui", "ON|Gras ?", 4, "", "slot 6", 6, "", true},
    {"Non", "ON|Gras ?", 4, "", "slot 4", 7, "Gras ?", true},
    {"information Valider", "ON|Gras ?", 0, "", "slot 1", 1, "", true},
    {"Suite", "Suite", -1, "", "slot 1", 1, "", true},
    {"entry Valider", "Lignes|9", 129, "", "slot 6", 6, "9", true},
    {"entry Annuler", "Lignes|9", 129, "", "slot 5", 2, "", true},
    {"entry keeps what was typed", "Lignes|9", 129, "  12 ", "slot 6", 6, "  12 ", true},
    {"question Annuler keeps the message", "a|b", 4, "", "slot 4", 7, "a|b", true},
    {"search", "*Chercher", 0, "", "slot 3", 1, "*", true},
    {"search with entry", "*Code|ab ", 129, "", "slot 3", 1, "ab*", true},
    {"named button", "Quel ?#MKM#099:Ticket1|106:Tiroir2|", -4, "", "slot 8", 6, "2", true},
    {"named buttons Annuler", "Quel ?#MKM#099:Ticket1|", -4, "", "slot 1", 1, "", true},
    {"box Valider trims", "Note| texte ", -654, "", "slot 6", 6, "texte", true},
    {"box Annuler", "Note|x", -654, "", "slot 4", 7, "Note", true},
    {"Enter on a question", "Q", 4, "", "enter", 6, "", true},
    {"Enter on an entry", "Lignes|9", 129, "", "enter", 6, "9", true},
    {"Enter on an information", "Info", 0, "", "enter", 1, "", true},
    {"Enter does nothing on Suite", "Suite", -1, "", "enter", -1, "Suite", false},
    {"Enter does nothing in box mode", "Note|x", -654, "", "enter", -654, "Note", false},
    {"Escape", "Lignes|9", 129, "", "escape", 2, "", true},
    {"Escape leaves a dialog without slots", "Attente", 3, "", "escape", 2, "", true},
    {"double click on an information", "Info", 0, "", "double click", 7, "", true},
    {"double click on a question", "ON|Gras ?", 4, "", "double click", 7, "", true},
};
}  // namespace

class PromptDialogTest : public QObject {
    Q_OBJECT
  private slots:
    void initTestCase() { installFonts(); }

    void slotsOfEachKind_data() {
        QTest::addColumn<int>("row");
        for (int i = 0; i < int(std::size(slotRows)); ++i) QTest::newRow(slotRows[i].name) << i;
    }
    void slotsOfEachKind() {
        QFETCH(int, row);
        const SlotRow& r = slotRows[row];
        const QString msg = QString::fromUtf8(r.msg);
        TestRun t;
        Loaded l(t, msg, r.kind);
        QCOMPARE(visibleSlots(l.dialog), QString::fromUtf8(r.shown));
        QCOMPARE(control<QLabel>(l.dialog, "Text1")->text(),
                 r.text1 ? QString::fromUtf8(r.text1) : msg);
        QCOMPARE(l.dialog.kind(), r.kindAfter);
        auto* text2 = control<QLineEdit>(l.dialog, "Text2");
        QCOMPARE(text2->isVisible() ? text2->text() : QStringLiteral("-"), QString(r.entry));
        if (text2->isVisible()) {
            QCOMPARE(text2->selectedText(), text2->text());
            QCOMPARE(text2->echoMode(), r.kind > 100000 ? QLineEdit::Password : QLineEdit::Normal);
        }
        const bool box = r.kind == -654;
        auto* text3 = control<QLineEdit>(l.dialog, "Text3");
        QCOMPARE(text3->isVisible(), box);
        QCOMPARE(control<QLabel>(l.dialog, "Label2")->text(), box ? "BOX" : "");
        if (box) QCOMPARE(text3->text(), msg.section(QLatin1Char('|'), -1));
        // Every visible slot lies inside the dialog, none over another.
        QRect previous;
        for (const auto& [n, face] : l.dialog.bt_prog) {
            if (face->isHidden()) continue;
            QVERIFY(l.dialog.rect().contains(face->geometry()));
            QVERIFY(!face->geometry().intersects(previous));
            previous = face->geometry();
        }
    }

    void prefixes_data() {
        QTest::addColumn<int>("row");
        for (int i = 0; i < int(std::size(prefixRows)); ++i) QTest::newRow(prefixRows[i].name) << i;
    }
    void prefixes() {
        QFETCH(int, row);
        const PrefixRow& r = prefixRows[row];
        TestRun t;
        form97 plain(t.ctx);
        auto* reference = control<QLabel>(plain, "Text1");
        Loaded l(t, r.msg, 0);
        auto* label = control<QLabel>(l.dialog, "Text1");
        QCOMPARE(label->text(), QString(r.text1));
        const QString colour =
            *r.colour ? QString(r.colour) : reference->palette().color(QPalette::WindowText).name();
        QCOMPARE(label->palette().color(QPalette::WindowText).name(), colour);
        QCOMPARE(label->font().pointSize(),
                 r.pointSize ? r.pointSize : reference->font().pointSize());
        QCOMPARE(bool(label->alignment() & Qt::AlignLeft), r.leftAligned);
        auto* oui = control<QLabel>(l.dialog, "oui");
        QCOMPARE(oui->isVisible(), r.tick >= 0);
        if (r.tick < 0) return;
        auto* check = control<QCheckBox>(l.dialog, "Check1");
        QCOMPARE(int(check->checkState()), r.tick);
        QVERIFY(samePicture(oui->pixmap(), t.ctx.icc().oui.at(r.tick)));
        QCOMPARE(control<QLabel>(l.dialog, "Label3")->text(), QString(r.tickCaption));
        // A click on the box or its caption turns it over.
        QTest::mouseClick(control<QLabel>(l.dialog, "Label3"), Qt::LeftButton);
        QCOMPARE(int(check->checkState()), r.tick ? 0 : 1);
    }

    void replies_data() {
        QTest::addColumn<int>("row");
        for (int i = 0; i < int(std::size(replyRows)); ++i) QTest::newRow(replyRows[i].name) << i;
    }
    void replies() {
        QFETCH(int, row);
        const ReplyRow& r = replyRows[row];
        TestRun t;
        Loaded l(t, r.msg, r.kind);
        QVERIFY(QTest::qWaitForWindowExposed(&l.dialog));
        auto* text2 = control<QLineEdit>(l.dialog, "Text2");
        auto* text3 = control<QLineEdit>(l.dialog, "Text3");
        QTest::keyClicks(text2, r.typed);
        // Keys go where the user's keys would: into the visible entry box.
        QWidget* keys = text2->isVisible()   ? static_cast<QWidget*>(text2)
                        : text3->isVisible() ? static_cast<QWidget*>(text3)
                                             : static_cast<QWidget*>(&l.dialog);
        const QString action(r.action);
        if (action.startsWith("slot "))
            QTest::mouseClick(l.dialog.li_prog.at(action.mid(5).toInt()), Qt::LeftButton);
        else if (action == "enter")
            QTest::keyClick(keys, Qt::Key_Return);
        else if (action == "escape")
            QTest::keyClick(keys, Qt::Key_Escape);
        else
            QTest::mouseDClick(control<QLabel>(l.dialog, "Text1"), Qt::LeftButton);
        QCOMPARE(t.ctx.retour_dialogue, r.retour);
        QCOMPARE(t.ctx.msg_dialogue, QString(r.message));
        QCOMPARE(l.dialog.isVisible(), !r.closed);
    }

    void entryDropsControlCharacters() {
        TestRun t;
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

    void pointerIsArrowThenDefault() {
        TestRun t;
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

    void keyboard_data() {
        QTest::addColumn<QString>("start");
        QTest::addColumn<QStringList>("keys");  // key captions or names, then the closing slot
        QTest::addColumn<QString>("entry");
        QTest::newRow("typed in capitals")
            << "Nom| ab " << QStringList{"X", "É", "Valider"} << "abXÉ";
        QTest::newRow("small letters and space")
            << "Nom|" << QStringList{"Maj", "à", "Espace", "ç", "9", "Valider"} << "à ç9";
        QTest::newRow("backspace")
            << "Nom|abc" << QStringList{"Effacer", "Effacer", "Valider"} << "a";
        QTest::newRow("Annuler keeps the value")
            << "Nom|abc" << QStringList{"Z", "Annuler"} << "abc";
    }
    void keyboard() {
        QFETCH(QString, start);
        QFETCH(QStringList, keys);
        QFETCH(QString, entry);
        TestRun t;
        Loaded l(t, start, 129);
        QString prompt;
        whenShown(QStringLiteral("clavier"), this, [&](QWidget* keyboard) {
            prompt = keyboard->findChild<QLabel*>(QStringLiteral("Label1"))->text();
            for (const QString& caption : keys) {
                for (QPushButton* key : keyboard->findChildren<QPushButton*>())
                    if (key->objectName() == caption || key->text() == caption) {
                        QTest::mouseClick(key, Qt::LeftButton);
                        break;
                    }
                for (QLabel* slot : keyboard->findChildren<QLabel*>())
                    if (slot->objectName().startsWith("li_prog") && slot->text() == caption)
                        QTest::mouseClick(slot, Qt::LeftButton);
            }
        });
        QTest::mouseClick(l.dialog.li_prog.at(2), Qt::LeftButton);
        QCOMPARE(prompt, QStringLiteral("Nom"));
        QVERIFY(!visibleWindow(QStringLiteral("clavier")));
        QCOMPARE(control<QLineEdit>(l.dialog, "Text2")->text(), entry);
        // The dialog goes on as usual afterwards.
        QTest::mouseClick(l.dialog.li_prog.at(6), Qt::LeftButton);
        QCOMPARE(t.ctx.retour_dialogue, 6);
        QCOMPARE(t.ctx.msg_dialogue, entry);
    }

    void wholeCallThroughTheContext() {
        TestRun t;
        t.ui.realDialogs = true;
        bool answered = false;
        whenShown(QStringLiteral("form97"), this, [&](QWidget* window) {
            answered = true;
            QTest::mouseClick(qobject_cast<form97*>(window)->li_prog.at(6), Qt::LeftButton);
        });
        QCOMPARE(t.ctx.form97(QStringLiteral("ON|Le texte apparait-il ?"), 4), 6);
        QVERIFY(answered);
        QVERIFY(!visibleWindow(QStringLiteral("form97")));
    }
};

QTEST_MAIN(PromptDialogTest)
#include "tst_prompt_dialog.moc"
