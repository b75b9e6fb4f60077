// The shell's rules that no flow sees: every bar icon its own picture, the
// theme's choices in the banks (the pictures of screens still to come
// included), the weight keypad's dressing, and the bubble's lamps, whose run
// follows the real clock.
#include <QtTest>

#include "shell/button_bar.h"
#include "shell/colours.h"
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

    void barIconsAreDistinct() {
        TestRun t;
        const Icc& icc = t.ctx.icc();
        QList<QImage> seen{icc.p11Picture(5).toImage()};
        for (int number : barIconNumbers) {
            const QImage image = icc.p11.at(number).toImage();
            QVERIFY2(!image.isNull() && !seen.contains(image), qPrintable(QString::number(number)));
            seen << image;
        }
    }

    // Records 1999 and 2042 to 2047 of file 20 choose the banks' pictures and
    // the colours; blank ones get their defaults written, a picture number the
    // bank does not have leaves the picture as it was.
    void theme_data() {
        QTest::addColumn<QByteArrayList>("records");  // 1999, 2042, 2043, 2044 ("-": not written)
        QTest::addColumn<QList<int>>("pictures");  // bxr of bt_fonc(46), bxm of btc(71) and tclavv
        QTest::addColumn<QList<double>>("colours");  // couleur_theme 1 to 4
        QTest::addColumn<qint64>("fileSize");
        QTest::newRow("defaults written")
            << QByteArrayList{"-", "-", "-", "-"} << QList<int>{0, 0, 10}
            << QList<double>{4210752, 4210752, 4210752, 4210752} << qint64(2047 * 20);
        QTest::newRow("kept as they are")
            << QByteArrayList{"##02:05:03:00:00:00", "##255", "", "##16711680"}
            << QList<int>{2, 5, 3} << QList<double>{255, 0, 16711680, 0} << qint64(2044 * 20);
        QTest::newRow("no such picture")
            << QByteArrayList{"##99:05:99", "-", "-", "-"} << QList<int>{4, 5, 4}
            << QList<double>{4210752, 4210752, 4210752, 4210752} << qint64(2047 * 20);
    }
    void theme() {
        QFETCH(QByteArrayList, records);
        QFETCH(QList<int>, pictures);
        QFETCH(QList<double>, colours);
        QFETCH(qint64, fileSize);
        TestRun t;
        const int numbers[] = {1999, 2042, 2043, 2044};
        for (int k = 0; k < 4; ++k)
            if (records[k] != "-") t.ctx.store.put(20, numbers[k], records[k]);
        // Pictures chosen before, which a number the bank does not have keeps.
        t.ctx.icc().bt_fonc.set(46, t.ctx.icr().bxr.at(4));
        t.ctx.icc().tclavv = t.ctx.icr().bxm.at(4);
        charge_theme(t.ctx);
        QCOMPARE(t.ctx.store.size(20), fileSize);  // nothing beyond what is read
        if (records[0] == "-") QCOMPARE(t.ctx.store.get(20, 1999), padded("##00:00:10:00:00:00"));
        for (int r = 2042; r <= 2047 && records[1] == "-"; ++r)
            QCOMPARE(t.ctx.store.get(20, r), padded("##4210752"));
        if (records[1] != "-")  // no default over a blank
            QCOMPARE(t.ctx.store.get(20, 2043), padded(records[2]));
        const Icc& icc = t.ctx.icc();
        QVERIFY(samePicture(icc.bt_fonc.at(46), t.ctx.icr().bxr.at(pictures[0])));
        QVERIFY(samePicture(icc.btc.at(71), t.ctx.icr().bxm.at(pictures[1])));
        QVERIFY(samePicture(icc.tclavv, t.ctx.icr().bxm.at(pictures[2])));
        for (int k = 1; k <= 4; ++k) QCOMPARE(t.ctx.couleur_theme[size_t(k)], colours[k - 1]);
        // The bar's captions take colour 1.
        KeypadScreen form(t.ctx);
        cree_bouton(form, QStringLiteral("001:124:Valider"));
        QCOMPARE(textColour(form.li_prog.at(1)), colourFromNumber(colours[0]));
    }

    // Record 3008 "#P#" and a flag a picture lets persimg_00N.gif of the
    // shop's own take the place of ticket2, bt_fonc, btc and tclavv.
    void shopPictures_data() {
        QTest::addColumn<QByteArray>("flags");
        QTest::addColumn<QStringList>("files");
        QTest::addColumn<QStringList>("replaced");
        QTest::newRow("flag without its file")
            << QByteArray("#P#001000") << QStringList{} << QStringList{};
        QTest::newRow("ticket") << QByteArray("#P#001000") << QStringList{"persimg_002.gif"}
                                << QStringList{"ticket2"};
        QTest::newRow("file without its flag")
            << QByteArray("#P#000000") << QStringList{"persimg_002.gif"} << QStringList{};
        QTest::newRow("all four") << QByteArray("#P#111111")
                                  << QStringList{"persimg_000.gif", "persimg_001.gif",
                                                 "persimg_002.gif", "persimg_003.gif",
                                                 "persimg_004.gif", "persimg_005.gif"}
                                  << QStringList{"ticket2", "bt_fonc", "btc", "tclavv"};
        QTest::newRow("no marker")
            << QByteArray("  P#111111") << QStringList{"persimg_002.gif", "persimg_005.gif"}
            << QStringList{};
    }
    void shopPictures() {
        QFETCH(QByteArray, flags);
        QFETCH(QStringList, files);
        QFETCH(QStringList, replaced);
        TestRun t;
        t.ctx.store.put(20, 3008, flags);
        QImage own(30, 20, QImage::Format_RGB32);
        own.fill(QColor(0x12, 0x34, 0x56));
        // The suite's files are GIF; a picture in any format Qt reads stands in.
        for (const QString& name : files) QVERIFY(own.save(name, "PNG"));
        charge_theme(t.ctx);
        const Icc& icc = t.ctx.icc();
        const std::map<QString, QPixmap> pictures = {{"ticket2", icc.ticket2},
                                                     {"bt_fonc", icc.bt_fonc.at(46)},
                                                     {"btc", icc.btc.at(71)},
                                                     {"tclavv", icc.tclavv}};
        for (const auto& [name, picture] : pictures)
            QVERIFY2(samePicture(picture, QPixmap::fromImage(own)) == replaced.contains(name),
                     qPrintable(name));
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
