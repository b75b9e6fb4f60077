// The shell's rules that no flow sees: a bar slot defined twice, the weight
// keypad's dressing (no screen of today has the keypad) and the bubble's
// lamps, whose run follows the real clock.
#include <QtTest>

#include "shell/button_bar.h"
#include "shell/fonts.h"
#include "shell/image_banks.h"
#include "shell/info_bubble.h"
#include "shell/screen.h"
#include "store/switch_table.h"
#include "support/test_run.h"

namespace {
bool samePicture(const QPixmap& a, const QPixmap& b) {
    return !a.isNull() && a.toImage() == b.toImage();
}

// A screen with a bar and the keypad of the weight screen (keys 1 to 10).
class KeypadScreen : public Screen {
  public:
    explicit KeypadScreen(Context& ctx) : Screen(ctx, QStringLiteral("essai")) {
        prepareBar(2, QPoint(10, 200), 90);
        for (int i = 1; i <= 10; ++i) {
            make<QLabel>(arrayName(QStringLiteral("ifondc"), i))->setGeometry(i * 60, 100, 56, 56);
            make<QLabel>(arrayName(QStringLiteral("Label17"), i))->setGeometry(i * 60, 110, 56, 40);
        }
    }
    QLabel* key(const char* name, int i) {
        return findChild<QLabel*>(arrayName(QString::fromLatin1(name), i));
    }
};

QColor textColour(const QLabel* label) {
    return label->palette().color(QPalette::WindowText);
}
}  // namespace

class ShellTest : public QObject {
    Q_OBJECT
  private slots:
    void initTestCase() { installFonts(); }

    // A slot defined twice shows its last definition (no screen of today
    // does it).
    void lastDefinitionWins() {
        TestRun t;
        KeypadScreen form(t.ctx);
        cree_bouton(form, QStringLiteral("000:108:Fin"));
        cree_bouton(form, QStringLiteral("000:124:Annuler"));
        QCOMPARE(form.li_prog.at(0)->text(), QStringLiteral("Annuler"));
        QVERIFY(samePicture(form.im_prog.at(0)->pixmap(), t.ctx.icc().p11.at(124)));
    }

    // The weight keypad: faces and captions from the theme, the size and font
    // of records 2038 and 2039 on keys 1 to 9; switch 10 at 1 puts the rows
    // 1-2-3 and 7-8-9 in each other's place.
    void chargeBouton_data() {
        QTest::addColumn<QByteArray>("sizeRecord");
        QTest::addColumn<QByteArray>("fontRecord");
        QTest::addColumn<int>("switch10");
        QTest::addColumn<int>("size");
        QTest::addColumn<QString>("family");
        QTest::newRow("defaults") << QByteArray() << QByteArray() << 0 << 36 << "Arial";
        QTest::newRow("size and font")
            << QByteArray("#I#20") << QByteArray("Courier New") << 0 << 20 << "Courier New";
        QTest::newRow("size without marker")
            << QByteArray("20") << QByteArray("   ") << 0 << 36 << "Arial";
        QTest::newRow("calculator order")
            << QByteArray("#I#24") << QByteArray() << 1 << 24 << "Arial";
        QTest::newRow("switch 10 at 2 keeps the order")
            << QByteArray() << QByteArray() << 2 << 36 << "Arial";
    }
    void chargeBouton() {
        QFETCH(QByteArray, sizeRecord);
        QFETCH(QByteArray, fontRecord);
        QFETCH(int, switch10);
        QFETCH(int, size);
        QFETCH(QString, family);
        TestRun t;
        if (!sizeRecord.isEmpty()) t.ctx.store.put(20, 2038, sizeRecord);
        if (!fontRecord.isEmpty()) t.ctx.store.put(20, 2039, fontRecord);
        pose_switch(t.ctx.switchs, 10, switch10);
        t.ctx.couleur_theme[1] = 65280;  // green
        KeypadScreen form(t.ctx);
        const int keptSize = form.key("Label17", 10)->font().pointSize();
        charge_bouton(form);
        for (int i = 1; i <= 10; ++i) {
            QVERIFY(samePicture(form.key("ifondc", i)->pixmap(), t.ctx.icc().tclavv));
            QCOMPARE(textColour(form.key("Label17", i)), QColor(0, 255, 0));
            QCOMPARE(form.key("Label17", i)->font().pointSize(), i == 10 ? keptSize : size);
            if (i != 10) QCOMPARE(form.key("Label17", i)->font().family(), family);
        }
        const bool swapped = switch10 == 1;
        for (int i : {1, 2, 3}) {
            QCOMPARE(form.key("Label17", i)->y(), swapped ? 158 : 110);
            QCOMPARE(form.key("ifondc", i)->y(), swapped ? 148 : 100);
        }
        for (int i : {7, 8, 9}) {
            QCOMPARE(form.key("Label17", i)->y(), swapped ? 12 : 110);
            QCOMPARE(form.key("ifondc", i)->y(), swapped ? 0 : 100);
        }
        QCOMPARE(form.key("Label17", 5)->y(), 110);
    }

    // While it stands, lamp k shows colour (k + step) mod 8, the step running
    // from 1 to 7 and back at each tick of Timer2; hidden, the lamps rest.
    void bubbleLampsRunBackAndForth() {
        TestRun t;
        t.ui.realDialogs = true;
        t.ctx.bulle(QStringLiteral("a"), QStringLiteral("1"));
        infoobulle& bubble = *t.ctx.icc().bubble;
        bubble.findChild<QLabel*>(QStringLiteral("Label4"))->setText(QStringLiteral("t"));
        bubble.findChild<QLabel*>(QStringLiteral("tppp"))->setText(QStringLiteral("10000"));
        t.ctx.bulle(QStringLiteral("b"), QStringLiteral("1"));
        const auto stepShown = [&] {
            for (int step = 0; step < 8; ++step) {
                bool all = true;
                for (int k = 0; k < 8; ++k)
                    all =
                        all && bubble.findChild<QLabel*>(arrayName(QStringLiteral("Shape1"), k))
                                       ->property("colourNumber")
                                       .toInt() == infoobulle::lampColours[size_t((k + step) % 8)];
                if (all) return step;
            }
            return -1;
        };
        auto* animation = bubble.findChild<QTimer*>(QStringLiteral("Timer2"));
        QList<int> steps{stepShown()};
        connect(animation, &QTimer::timeout, this, [&] { steps << stepShown(); });
        QTRY_VERIFY_WITH_TIMEOUT(steps.size() >= 16, 5000);
        for (qsizetype k = 1; k < steps.size(); ++k) {
            QVERIFY2(steps[k] >= 1 && steps[k] <= 7, qPrintable(QString::number(steps[k])));
            QCOMPARE(qAbs(steps[k] - steps[k - 1]), 1);
        }
        QVERIFY(steps.contains(7) && steps.mid(1).contains(1));
        bubble.hide();
        QVERIFY(!animation->isActive());
    }
};

QTEST_MAIN(ShellTest)
#include "tst_shell.moc"
