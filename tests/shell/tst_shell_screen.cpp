// What every screen shares: placing and frame, the bar, the theme records,
// the keypad dressing and the registry of screens.
#include <QFile>
#include <QFontInfo>
#include <QImage>
#include <QTimer>
#include <QtTest>

#include "shell/button_bar.h"
#include "shell/fonts.h"
#include "shell/image_banks.h"
#include "shell/placing.h"
#include "shell/screen.h"
#include "shell/screen_registry.h"
#include "store/switch_table.h"
#include "support/test_run.h"
#include "support/widgets.h"

namespace {
QColor captionColour(const QLabel* caption) {
    return caption->palette().color(QPalette::WindowText);
}

// A screen with a bar of four slots and the keypad controls of the weight
// screen (keys 1 to 10), as the shell's callers build them.
class BarScreen : public Screen {
  public:
    explicit BarScreen(Context& ctx) : Screen(ctx, QStringLiteral("essai")) {
        resize(640, 300);
        prepareBar(4, QPoint(10, 200), 90);
        for (int i = 1; i <= 10; ++i) {
            make<QLabel>(arrayName(QStringLiteral("ifondc"), i))->setGeometry(i * 60, 100, 56, 56);
            make<QLabel>(arrayName(QStringLiteral("Label17"), i))->setGeometry(i * 60, 110, 56, 40);
        }
    }
    void bt_prog_Click(int index) override { clicks << index; }
    QList<int> clicks;
};
}  // namespace

class ShellScreenTest : public QObject {
    Q_OBJECT
  private slots:
    void initTestCase() { installFonts(); }

    void fontsStandIn() {
        QCOMPARE(QFontInfo(QFont(QStringLiteral("Arial"), 12)).family(),
                 QStringLiteral("Liberation Sans"));
    }

    void placeEcran_data() {
        QTest::addColumn<int>("screenWidth");
        QTest::addColumn<int>("left");
        QTest::newRow("1024 wide") << 1024 << 0;
        QTest::newRow("wider: centred") << 1280 << 128;
        QTest::newRow("full HD") << 1920 << 448;
        QTest::newRow("800 wide: hangs over both sides") << 800 << -112;
    }

    void placeEcran() {
        QFETCH(int, screenWidth);
        QFETCH(int, left);
        QWidget form;
        form.resize(300, 200);
        place_ecran(form, screenWidth);
        QCOMPARE(form.geometry(), QRect(left, 0, 1024, 738));
        // With the widget's own screen.
        QWidget real;
        place_ecran(real);
        QCOMPARE(real.x(), (real.screen()->geometry().width() - 1024) / 2);
    }

    void centreEcran() {
        QWidget form;
        form.resize(640, 290);
        centre_ecran(form, 1024);
        QCOMPARE(form.geometry(),
                 QRect(192, 224, 640, 290));  // on the design height, not the screen
        centre_ecran(form, 1920);
        QCOMPARE(form.pos(), QPoint(640, 224));
    }

    void poseCadre() {
        TestRun t;
        BarScreen form(t.ctx);
        form.resize(640, 290);
        pose_cadre(form);
        const QRect expected[8] = {{0, 0, 32, 32},     {608, 0, 32, 32},  {608, 258, 32, 32},
                                   {0, 258, 32, 32},   {0, 32, 32, 226},  {32, 0, 576, 32},
                                   {608, 32, 32, 226}, {32, 258, 576, 32}};
        const QObjectList stack = form.children();
        const auto firstControl = stack.indexOf(form.bt_prog.at(0));
        for (int i = 0; i < 8; ++i) {
            auto* piece = form.findChild<QLabel*>(arrayName(QStringLiteral("ccb"), i));
            QVERIFY(piece);
            QCOMPARE(piece->geometry(), expected[i]);
            QVERIFY(samePicture(piece->pixmap(), t.ctx.icc().ccb.at(i)));
            QVERIFY(stack.indexOf(piece) < firstControl);  // behind every control
        }
        // Laid again on a new size, the same eight pieces follow it.
        form.resize(400, 200);
        pose_cadre(form);
        QCOMPARE(form.findChildren<QLabel*>(QRegularExpression(QStringLiteral("^ccb"))).size(), 8);
        QCOMPARE(form.ccb.at(6)->geometry(), QRect(368, 32, 32, 136));
    }

    void creeBouton() {
        TestRun t;
        t.ctx.couleur_theme[1] = 255;  // red, in blue-green-red order
        BarScreen form(t.ctx);
        form.show();
        cree_bouton(form, QStringLiteral("000:108:Fin"));
        cree_bouton(form, QStringLiteral("000:124:Annuler"));  // the last call wins
        cree_bouton(form, QStringLiteral("001:000:Série"));
        cree_bouton(form, QStringLiteral("002:077:Autre"));
        Icc& icc = t.ctx.icc();
        QCOMPARE(form.li_prog.at(0)->text(), QStringLiteral("Annuler"));
        QVERIFY(samePicture(form.im_prog.at(0)->pixmap(), icc.p11.at(124)));
        QCOMPARE(form.li_prog.at(1)->text(), QStringLiteral("Série"));
        QVERIFY(samePicture(form.im_prog.at(1)->pixmap(), icc.p11.at(0)));
        QVERIFY(samePicture(form.im_prog.at(2)->pixmap(), icc.p11Picture(77)));
        QVERIFY(!form.im_prog.at(2)->pixmap().isNull());
        QVERIFY(form.bt_prog.at(3)->isHidden());
        for (int n = 0; n < 3; ++n) {
            QVERIFY(form.bt_prog.at(n)->isVisible());
            QVERIFY(samePicture(form.bt_prog.at(n)->pixmap(), icc.btc.at(71)));
            QCOMPARE(form.im_prog.at(n)->pos(), form.bt_prog.at(n)->pos());
            QCOMPARE(form.li_prog.at(n)->geometry(), form.bt_prog.at(n)->geometry());
            QCOMPARE(captionColour(form.li_prog.at(n)), QColor(255, 0, 0));
        }
        // Captions and faces forward their clicks with the slot number.
        QTest::mouseClick(form.li_prog.at(1), Qt::LeftButton);
        QTest::mouseClick(form.bt_prog.at(0), Qt::LeftButton);
        QCOMPARE(form.clicks, (QList<int>{1, 0}));
    }

    void barIconsAreDistinct() {
        TestRun t;
        const Icc& icc = t.ctx.icc();
        QList<QImage> seen{icc.p11Picture(5).toImage()};
        for (int number : barIconNumbers) {
            const QImage image = icc.p11.at(number).toImage();
            QVERIFY2(!image.isNull(), qPrintable(QString::number(number)));
            QVERIFY2(!seen.contains(image), qPrintable(QString::number(number)));
            seen << image;
        }
    }

    void chargeThemeDefaults() {
        TestRun t;
        charge_theme(t.ctx);
        QCOMPARE(t.ctx.store.get(20, 1999), padded("##00:00:10:00:00:00"));
        for (int r = 2042; r <= 2047; ++r) QCOMPARE(t.ctx.store.get(20, r), padded("##4210752"));
        QCOMPARE(t.ctx.store.size(20), qint64(2047 * 20));  // nothing beyond, nothing else
        for (int k = 1; k <= 6; ++k) QCOMPARE(t.ctx.couleur_theme[size_t(k)], 4210752.0);
        const Icc& icc = t.ctx.icc();
        const Icr& icr = t.ctx.icr();
        QVERIFY(samePicture(icc.bt_fonc.at(46), icr.bxr.at(0)));
        QVERIFY(samePicture(icc.btc.at(71), icr.bxm.at(0)));
        QVERIFY(samePicture(icc.tclavv, icr.bxm.at(10)));
        // The default caption colour is the theme's dark grey.
        BarScreen form(t.ctx);
        cree_bouton(form, QStringLiteral("001:124:Valider"));
        QCOMPARE(captionColour(form.li_prog.at(1)), QColor(0x40, 0x40, 0x40));
    }

    void chargeThemeKeepsWhatIsThere() {
        TestRun t;
        t.ctx.store.put(20, 1999, "##02:05:03:00:00:00");
        t.ctx.store.put(20, 2042, "##255");
        t.ctx.store.put(20, 2043, "");
        t.ctx.store.put(20, 2044, "##16711680");
        const QPixmap builtInKeys = t.ctx.icc().tclavv;
        charge_theme(t.ctx);
        QCOMPARE(t.ctx.store.get(20, 1999), padded("##02:05:03:00:00:00"));
        QCOMPARE(t.ctx.store.get(20, 2043), padded(""));  // no default written
        QCOMPARE(t.ctx.store.size(20), qint64(2044 * 20));
        QCOMPARE(t.ctx.couleur_theme[1], 255.0);
        QCOMPARE(t.ctx.couleur_theme[2], 0.0);
        QCOMPARE(t.ctx.couleur_theme[3], 16711680.0);
        QCOMPARE(t.ctx.couleur_theme[4], 0.0);  // never written: zero bytes
        QVERIFY(samePicture(t.ctx.icc().bt_fonc.at(46), t.ctx.icr().bxr.at(2)));
        QVERIFY(samePicture(t.ctx.icc().btc.at(71), t.ctx.icr().bxm.at(5)));
        QVERIFY(samePicture(t.ctx.icc().tclavv, t.ctx.icr().bxm.at(3)));
        QVERIFY(!samePicture(builtInKeys, t.ctx.icc().tclavv));
        // A picture number the bank does not have leaves the picture as it was.
        t.ctx.store.put(20, 1999, "##99:05:03");
        const QPixmap before = t.ctx.icc().bt_fonc.at(46);
        charge_theme(t.ctx);
        QVERIFY(samePicture(t.ctx.icc().bt_fonc.at(46), before));
    }

    void chargeThemeCustomPictures_data() {
        QTest::addColumn<QByteArray>("flags");
        QTest::addColumn<QStringList>("files");  // written as pictures in the directory
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

    void chargeThemeCustomPictures() {
        QFETCH(QByteArray, flags);
        QFETCH(QStringList, files);
        QFETCH(QStringList, replaced);
        TestRun t;
        t.ctx.store.put(20, 3008, flags);
        QImage custom(30, 20, QImage::Format_RGB32);
        custom.fill(QColor(0x12, 0x34, 0x56));
        // The suite's files are GIF; a picture in any format Qt reads stands in.
        for (const QString& name : files) QVERIFY(custom.save(name, "PNG"));
        charge_theme(t.ctx);
        const Icc& icc = t.ctx.icc();
        const QPixmap own = QPixmap::fromImage(custom);
        const std::map<QString, QPixmap> pictures = {{"ticket2", icc.ticket2},
                                                     {"bt_fonc", icc.bt_fonc.at(46)},
                                                     {"btc", icc.btc.at(71)},
                                                     {"tclavv", icc.tclavv}};
        for (const auto& [name, picture] : pictures)
            QVERIFY2(samePicture(picture, own) == replaced.contains(name), qPrintable(name));
    }

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
        BarScreen form(t.ctx);
        const auto key = [&](const char* name, int i) {
            return form.findChild<QLabel*>(arrayName(QString::fromLatin1(name), i));
        };
        const int defaultSize = key("Label17", 10)->font().pointSize();
        charge_bouton(form);
        for (int i = 1; i <= 10; ++i) {
            QVERIFY(samePicture(key("ifondc", i)->pixmap(), t.ctx.icc().tclavv));
            QCOMPARE(captionColour(key("Label17", i)), QColor(0, 255, 0));
            QCOMPARE(key("Label17", i)->font().pointSize(), i == 10 ? defaultSize : size);
            if (i != 10) QCOMPARE(key("Label17", i)->font().family(), family);
        }
        const bool swapped = switch10 == 1;
        for (int i : {1, 2, 3}) {
            QCOMPARE(key("Label17", i)->y(), swapped ? 158 : 110);
            QCOMPARE(key("ifondc", i)->y(), swapped ? 148 : 100);
        }
        for (int i : {7, 8, 9}) {
            QCOMPARE(key("Label17", i)->y(), swapped ? 12 : 110);
            QCOMPARE(key("ifondc", i)->y(), swapped ? 0 : 100);
        }
        QCOMPARE(key("Label17", 5)->y(), 110);
    }

    void registry() {
        TestRun t;
        ScreenRegistry screens;
        int loads = 0;
        class Counting : public Screen {
          public:
            Counting(Context& ctx, int& loads)
                : Screen(ctx, QStringLiteral("tirrro")), loads_(loads) {}
            void load() override { ++loads_; }
            int& loads_;
        };
        screens.add(QStringLiteral("tirrro"),
                    [&](Context& ctx) { return new Counting(ctx, loads); });
        QVERIFY(screens.contains(QStringLiteral("tirrro")));
        QVERIFY(!screens.contains(QStringLiteral("etiqqq")));
        QCOMPARE(screens.names(), QStringList{QStringLiteral("tirrro")});
        QVERIFY(!screens.create(QStringLiteral("etiqqq"), t.ctx));
        QVERIFY(!screens.show(QStringLiteral("etiqqq"), t.ctx, true));
        const auto made = screens.create(QStringLiteral("tirrro"), t.ctx);
        QCOMPARE(&made->ctx, &t.ctx);
        QCOMPARE(loads, 0);

        bool seen = false;
        whenShown(QStringLiteral("tirrro"), this, [&](QWidget* w) {
            seen = w->isModal();
            w->hide();
        });
        QVERIFY(screens.show(QStringLiteral("tirrro"), t.ctx, true));
        QVERIFY(seen);
        QCOMPARE(loads, 1);
        QVERIFY(!visibleWindow(QStringLiteral("tirrro")));

        QVERIFY(screens.show(QStringLiteral("tirrro"), t.ctx, false));
        QWidget* modeless = visibleWindow(QStringLiteral("tirrro"));
        QVERIFY(modeless);
        QPointer<QWidget> watch(modeless);
        modeless->close();
        QTRY_VERIFY(watch.isNull());  // deleted once closed
    }
};

QTEST_MAIN(ShellScreenTest)
#include "tst_shell_screen.moc"
