// The info bubble: its texts by mode, its timing, the change rule of Label1,
// the lamps' run, the clicks and the reset.
#include <QElapsedTimer>
#include <QTimer>
#include <QtTest>

#include "shell/fonts.h"
#include "shell/image_banks.h"
#include "shell/info_bubble.h"
#include "support/test_run.h"

namespace {
// A run whose bubble is the real one.
struct BubbleRun : TestRun {
    BubbleRun() { ui.realDialogs = true; }
};

infoobulle& bubbleOf(BubbleRun& t) {
    return *t.ctx.icc().bubble;
}

QTimer* timer(BubbleRun& t, const char* name) {
    return bubbleOf(t).findChild<QTimer*>(QString::fromLatin1(name));
}

QLabel* label(BubbleRun& t, const QString& name) {
    return bubbleOf(t).findChild<QLabel*>(name);
}

QList<int> lampColours(BubbleRun& t) {
    QList<int> colours;
    for (int k = 0; k < 8; ++k)
        colours
            << label(t, arrayName(QStringLiteral("Shape1"), k))->property("colourNumber").toInt();
    return colours;
}

// The animation step the lamps show: lamp k has colour (k + step) mod 8.
int stepShown(BubbleRun& t) {
    const QList<int> colours = lampColours(t);
    for (int step = 0; step < 8; ++step) {
        bool all = true;
        for (int k = 0; k < 8; ++k)
            all = all && colours[k] == infoobulle::lampColours[size_t((k + step) % 8)];
        if (all) return step;
    }
    return -1;
}
}  // namespace

class InfoBubbleTest : public QObject {
    Q_OBJECT
  private slots:
    void initTestCase() { installFonts(); }

    void modes_data() {
        QTest::addColumn<QString>("before");  // a text shown first with mode 1, or empty
        QTest::addColumn<QString>("texte");
        QTest::addColumn<QString>("mode");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<bool>("visible");
        const struct {
            const char *name, *before, *texte, *mode, *shown;
            bool visible;
        } rows[] = {
            {"1 shows the text", "", "Ticket imprimé", "1", "Ticket imprimé", true},
            {"2 usb printer", "", "x", "2",
             "Problème avec l'imprimante ticket usb, vérifiez qu'elle est en allumée !", true},
            {"3 ticket printer", "", "x", "3",
             "Probleme d'impression sur l'imprimante ticket vérifiez les parametres (N° Port,...) "
             "!",
             true},
            {"4 drawer", "", "x", "4",
             "Probleme d'ouverture du tiroir, vérifiez les parametres (N° Port,...) !", true},
            {"0 on a hidden bubble", "", "x", "0", "", false},
            {"0 hides and keeps the text", "Avant", "x", "0", "Avant", false},
            {"1 with a blank text hides", "Avant", "  ", "1", "  ", false},
            {"7 shows the previous text", "Avant", "x", "7", "Avant", true},
        };
        for (const auto& r : rows)
            QTest::newRow(r.name) << QString(r.before) << QString(r.texte) << QString(r.mode)
                                  << QString(r.shown) << r.visible;
    }

    void modes() {
        QFETCH(QString, before);
        QFETCH(QString, texte);
        QFETCH(QString, mode);
        QFETCH(QString, shown);
        QFETCH(bool, visible);
        BubbleRun t;
        if (!before.isEmpty()) t.ctx.bulle(before, QStringLiteral("1"));
        t.ctx.bulle(QStringLiteral("autre"), QStringLiteral("0"));
        bulle(t.ctx, QString(), QStringLiteral("0"));  // both ways reach the one bubble
        QVERIFY(!bubbleOf(t).isVisible());
        t.ctx.bulle(texte, mode);
        QCOMPARE(label(t, QStringLiteral("Label1"))->text(), shown);
        QCOMPARE(bubbleOf(t).isVisible(), visible);
    }

    void oneBubblePerRun() {
        BubbleRun t;
        t.ctx.bulle(QStringLiteral("a"), QStringLiteral("1"));
        infoobulle* first = t.ctx.icc().bubble.get();
        t.ctx.bulle(QStringLiteral("b"), QStringLiteral("1"));
        QCOMPARE(t.ctx.icc().bubble.get(), first);
        int bubbles = 0;
        for (QWidget* w : QApplication::topLevelWidgets())
            bubbles += w->objectName() == QLatin1String("infoobulle");
        QCOMPARE(bubbles, 1);
    }

    void hidesAtTheFirstTick() {
        BubbleRun t;
        QElapsedTimer clock;
        clock.start();
        t.ctx.bulle(QString(), QStringLiteral("2"));
        QVERIFY(bubbleOf(t).isVisible());
        QCOMPARE(timer(t, "Timer1")->interval(), 300);
        QTRY_VERIFY_WITH_TIMEOUT(!bubbleOf(t).isVisible(), 2000);
        QVERIFY(clock.elapsed() >= 270);  // coarse timers may fire 5% early
        // Shown again with the same text, the running tick hides it again.
        t.ctx.bulle(QString(), QStringLiteral("2"));
        QVERIFY(bubbleOf(t).isVisible());
        QTRY_VERIFY_WITH_TIMEOUT(!bubbleOf(t).isVisible(), 1000);
    }

    void sameTextTwiceRestartsNothing() {
        BubbleRun t;
        t.ctx.bulle(QStringLiteral("Même texte"), QStringLiteral("1"));
        QTest::qWait(200);
        t.ctx.bulle(QStringLiteral("Même texte"), QStringLiteral("1"));
        QVERIFY2(
            timer(t, "Timer1")->remainingTime() <= 160,
            qPrintable(QString::number(timer(t, "Timer1")->remainingTime())));  // not restarted
        QTRY_VERIFY_WITH_TIMEOUT(!bubbleOf(t).isVisible(), 1000);

        // A new text restarts the time.
        t.ctx.bulle(QStringLiteral("Un"), QStringLiteral("1"));
        QTest::qWait(200);
        t.ctx.bulle(QStringLiteral("Deux"), QStringLiteral("1"));
        QVERIFY(timer(t, "Timer1")->remainingTime() > 200);
    }

    void callerGivesTheTime() {
        BubbleRun t;
        t.ctx.bulle(QStringLiteral("a"), QStringLiteral("1"));
        label(t, QStringLiteral("tppp"))->setText(QStringLiteral("1500"));
        t.ctx.bulle(QStringLiteral("b"), QStringLiteral("1"));
        QCOMPARE(timer(t, "Timer1")->interval(), 300);  // Label4 is empty
        label(t, QStringLiteral("Label4"))->setText(QStringLiteral("t"));
        t.ctx.bulle(QStringLiteral("c"), QStringLiteral("1"));
        QCOMPARE(timer(t, "Timer1")->interval(), 1500);
        QTest::qWait(500);
        QVERIFY(bubbleOf(t).isVisible());
    }

    void lampsRunBackAndForth() {
        BubbleRun t;
        t.ctx.bulle(QStringLiteral("a"), QStringLiteral("1"));
        label(t, QStringLiteral("Label4"))->setText(QStringLiteral("t"));
        label(t, QStringLiteral("tppp"))->setText(QStringLiteral("10000"));
        t.ctx.bulle(QStringLiteral("b"), QStringLiteral("1"));
        QTimer* animation = timer(t, "Timer2");
        QVERIFY(animation->isActive());
        QList<int> steps{stepShown(t)};
        connect(animation, &QTimer::timeout, this, [&] { steps << stepShown(t); });
        QTRY_VERIFY_WITH_TIMEOUT(steps.size() >= 16, 5000);
        for (qsizetype k = 1; k < steps.size(); ++k) {
            QVERIFY2(steps[k] >= 1 && steps[k] <= 7, qPrintable(QString::number(steps[k])));
            QCOMPARE(qAbs(steps[k] - steps[k - 1]), 1);
        }
        QVERIFY(steps.contains(7));
        QVERIFY(steps.mid(1).contains(1));
        // Hidden, the lamps rest.
        bubbleOf(t).hide();
        QVERIFY(!animation->isActive());
    }

    void clicks_data() {
        QTest::addColumn<QString>("target");
        QTest::newRow("panel") << "infoobulle";
        QTest::newRow("Label1") << "Label1";
    }

    void clicks() {
        QFETCH(QString, target);
        BubbleRun t;
        t.ctx.bulle(QStringLiteral("Cliquez"), QStringLiteral("1"));
        QWidget* w = target == QLatin1String("infoobulle") ? static_cast<QWidget*>(&bubbleOf(t))
                                                           : label(t, target);
        QTest::mouseClick(w, Qt::LeftButton, {}, QPoint(w->width() - 60, w->height() - 6));
        QVERIFY(!bubbleOf(t).isVisible());
        QCOMPARE(label(t, QStringLiteral("Label1"))->text(), QStringLiteral("Cliquez"));
    }

    void resetByLabel2() {
        BubbleRun t;
        t.ctx.bulle(QStringLiteral("Cliquez"), QStringLiteral("1"));
        QTest::mouseClick(label(t, QStringLiteral("Label2")), Qt::LeftButton);
        QVERIFY(!bubbleOf(t).isVisible());
        QCOMPARE(label(t, QStringLiteral("Label1"))->text(), QString());
        for (const char* name : {"Timer1", "Timer2"}) {
            QCOMPARE(timer(t, name)->interval(), 0);
            QVERIFY(!timer(t, name)->isActive());
        }
        for (int colour : lampColours(t))
            QVERIFY(colour == infoobulle::resetColourA || colour == infoobulle::resetColourB);
        // The same text comes back as a change, shown again; nothing hides it now.
        t.ctx.bulle(QStringLiteral("Cliquez"), QStringLiteral("1"));
        QVERIFY(bubbleOf(t).isVisible());
        QCOMPARE(timer(t, "Timer1")->interval(), 300);
    }

    void neverTakesTheFocus() {
        BubbleRun t;
        QWidget work;
        work.setObjectName(QStringLiteral("travail"));
        work.show();
        work.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&work));
        t.ctx.bulle(QStringLiteral("Info"), QStringLiteral("1"));
        QVERIFY(bubbleOf(t).isVisible());
        QVERIFY(bubbleOf(t).testAttribute(Qt::WA_ShowWithoutActivating));
        QVERIFY(bubbleOf(t).windowFlags() & Qt::FramelessWindowHint);
        QCOMPARE(QApplication::activeWindow(), &work);
    }
};

QTEST_MAIN(InfoBubbleTest)
#include "tst_info_bubble.moc"
