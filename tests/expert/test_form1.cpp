// Form1 driven offscreen through its real controls, on real pseudo-terminal
// ports, with the records it leaves checked on disk. The whole paths of a
// user (the wire and every record of a save) are the flows' business; these
// are the rules and failures around them.
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QtTest>

#include "app/app_platform.h"
#include "expert/form1.h"
#include "support/test_run.h"
#include "support/widgets.h"

namespace {

const QString sales = QString::fromLatin1(files::salesName);
const QString till = QString::fromLatin1(files::networkTillName);

QByteArray onDisk(const QString& file, int number) {
    return ScratchDir::record(file, number);
}

struct Screen1 {
    explicit Screen1(TestRun& run) : form(run.ctx) {
        form.load();
        form.show();
    }
    Form1 form;
    QWidget* named(const QString& name) { return form.findChild<QWidget*>(name); }
    void bar(int slot) { click(form.li_prog.at(slot)); }
};

}  // namespace

class Form1Test : public QObject {
    Q_OBJECT
  private slots:
    // "Valider" stores the port last printed on, not the one chosen since.
    void savedPortIsTheOnePrintedOn() {
        TestRun run({3});
        Screen1 s(run);
        click(s.named("Command5(0)"));
        click(s.form.Option1.at(3));
        s.bar(1);
        QVERIFY(!run.platform.received(3).isEmpty());
        QVERIFY(run.ui.messageBoxes.isEmpty());
        QVERIFY(!s.form.MSComm1().portOpen());
        click(s.form.Option1.at(7));
        run.answer({{0, ""}});
        s.bar(2);
        // Characters 4 and 5 only: the zero bytes of a fresh record stay.
        QCOMPARE(onDisk(sales, 70), QByteArray("\0\0\0"
                                               "3 ",
                                               5) +
                                        QByteArray(15, '\0'));
    }

    // One message, the action left at the failing step, the port left open.
    void portFailures_data() {
        QTest::addColumn<int>("port");
        QTest::addColumn<QString>("box");
        QTest::addColumn<QString>("value");
        QTest::addColumn<int>("bytesBefore");
        QTest::newRow("no port chosen") << 0 << "Text111"
                                        << "4" << 0;
        QTest::newRow("port that is no port") << 5 << "Text111"
                                              << "4" << 0;
        QTest::newRow("settings refused") << 3 << "Text6(2)"
                                          << "" << 0;
        QTest::newRow("code above 255") << 3 << "Text8(10)"
                                        << "999" << 5 + 37 + 27 + 23;
        QTest::newRow("negative margin") << 3 << "Text111"
                                         << "-1" << 5;
    }
    void portFailures() {
        QFETCH(int, port);
        QFETCH(QString, box);
        QFETCH(QString, value);
        QFETCH(int, bytesBefore);
        TestRun run({3});
        Screen1 s(run);
        click(s.named("Command3"));
        s.form.findChild<QLineEdit*>(box)->setText(value);
        if (port) click(s.form.Option1.at(port));
        s.bar(1);
        QCOMPARE(run.ui.messageBoxes, QStringList{"Erreur de port"});
        QCOMPARE(run.ctx.port_serie, qint16(port));
        if (port != 3) return;
        QCOMPARE(run.platform.received(3).size(), bytesBefore);
        // Left open: the next action fails at its own opening.
        s.form.findChild<QLineEdit*>(box)->setText(box == "Text6(2)" ? "8" : "4");
        s.bar(1);
        QCOMPARE(run.ui.messageBoxes.size(), 2);
    }

    // A USB model prints through its own family; an unreachable printer
    // raises the bubble once for each write and nothing else.
    void usbModels() {
        TestRun run;
        Screen1 s(run);
        click(s.named("Command5(1)"));
        QCOMPARE(s.form.check2(), 1);
        QCOMPARE(s.form.Label13->text(), QStringLiteral("0"));
        s.bar(1);
        QVERIFY(run.ui.messageBoxes.isEmpty());
        QCOMPARE(run.ui.bubbles, QStringList(3 + 7 + 5 + 5, QStringLiteral("2: ")));
        click(s.named("Command5(2)"));
        QCOMPARE(s.form.check2(), 2);
        run.platform.usbFamilies.t3.reachable = true;
        s.bar(1);
        QCOMPARE(run.ctx.famille_usb, qint16(2));
        QCOMPARE(run.platform.usbFamilies.t3.writes.size(), 20);
        QVERIFY(run.platform.usbFamilies.t1.writes.isEmpty());
        // A serial model after a USB one keeps Label13 and the cutter test.
        click(s.named("Command3"));
        QCOMPARE(s.form.check2(), 0);
        QCOMPARE(s.form.Label13->text(), QStringLiteral("2"));
        QVERIFY(s.form.Check1->isChecked());
    }

    // Every box gets one blank, the drop-down list keeps its entry, and the
    // Citizen model leaves its empty groups blank.
    void modelReplacesEverything() {
        TestRun run;
        Screen1 s(run);
        s.form.Combo1->setCurrentIndex(2);
        click(s.named("Command3"));
        s.form.Text9.at(4)->setText("12");
        click(s.named("Command2"));
        QCOMPARE(s.form.Combo1->currentIndex(), 2);
        const QStringList shown{s.form.Text9.at(4)->text(),  s.form.Text8.at(2)->text(),
                                s.form.Text8.at(30)->text(), s.form.Text2.at(5)->text(),
                                s.form.Text1.at(0)->text(),  s.form.Text6.at(0)->text(),
                                s.form.Text111->text()};
        QCOMPARE(shown, (QStringList{" ", "009", " ", " ", " ", "115200", "0"}));
    }

    // The closing questions and the records each answer leaves, on a main
    // station and on a network till: 20 of w_cai020.wdo, then 70, 81 and 27
    // of the station's file.
    void closingQuestions_data() {
        QTest::addColumn<bool>("networkTill");
        QTest::addColumn<QString>("model");
        QTest::addColumn<QList<int>>("answers");
        QTest::addColumn<QStringList>("records");
        const QString saved = "027:064:   :   :   :";
        QTest::newRow("nothing saved, no such printer")
            << false << "Command3" << QList<int>{7, 7} << QStringList{"0", "00 7", " ", "seed"};
        QTest::newRow("saved, serial, ticket")
            << false << "Command3" << QList<int>{6, 6, 6} << QStringList{"-1", "01 7", "0", saved};
        QTest::newRow("saved, serial, no ticket")
            << false << "Command3" << QList<int>{6, 6, 2} << QStringList{"0", "01 7", "0", saved};
        QTest::newRow("USB keeps the route") << false << "Command5(1)" << QList<int>{6, 6, 6}
                                             << QStringList{"-1", "XX 7 zz", "-1", saved};
        QTest::newRow("network till")
            << true << "Command3" << QList<int>{6, 6, 6} << QStringList{"-1", "01 7", "0", saved};
        QTest::newRow("network till, no such printer")
            << true << "Command5(2)" << QList<int>{1, 7} << QStringList{"0", "00 7", " ", "seed"};
    }
    void closingQuestions() {
        QFETCH(bool, networkTill);
        QFETCH(QString, model);
        QFETCH(QList<int>, answers);
        QFETCH(QStringList, records);
        TestRun run({}, networkTill ? TestRun::NetworkTill : TestRun::MainStation);
        const int station = run.ctx.fichier_perif;
        run.ctx.store.put(station, 70, "XX 7 zz");
        run.ctx.store.put(station, 27, "seed");
        Screen1 s(run);
        QCOMPARE(run.ctx.port_serie, qint16(7));
        click(s.named(model));
        for (int a : answers) run.answer({{a, ""}});
        QVERIFY_THROWS_EXCEPTION(ProgramEnded, s.form.quitte_expert());
        QVERIFY(run.ui.replies.empty());
        const QString file = networkTill ? till : sales;
        QByteArray expected;
        for (const QString& r : records) expected += padded(r.toLatin1());
        QCOMPARE(onDisk(sales, 20) + onDisk(file, 70) + onDisk(file, 81) + onDisk(file, 27),
                 expected);
        if (networkTill) QCOMPARE(onDisk(sales, 70), QByteArray());
    }

    // Command8: the size offered and kept, the bold mark, the records through
    // file 20 whatever the station, then the end.
    void defaultPrinter_data() {
        QTest::addColumn<QByteArray>("stored");
        QTest::addColumn<QString>("offered");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<int>("bold");
        QTest::addColumn<QByteArray>("record");
        QTest::newRow("blank offers 9") << QByteArray() << "9"
                                        << "12" << 6 << padded("12       :1");
        QTest::newRow("30 offers 9") << QByteArray("30") << "9"
                                     << "24" << 7 << padded("24       :0");
        QTest::newRow("7 kept") << QByteArray("7:1") << "7"
                                << "7" << 6 << padded("7        :1");
        QTest::newRow("6 typed") << QByteArray("12") << "12"
                                 << "6" << 6 << padded("9        :1");
        QTest::newRow("25 typed") << QByteArray("12") << "12"
                                  << "25" << 2 << padded("9        :0");
        QTest::newRow("cancelled") << QByteArray("12") << "12"
                                   << "" << 6 << padded("9        :1");
    }
    void defaultPrinter() {
        QFETCH(QByteArray, stored);
        QFETCH(QString, offered);
        QFETCH(QString, typed);
        QFETCH(int, bold);
        QFETCH(QByteArray, record);
        TestRun run({}, TestRun::NetworkTill);
        if (!stored.isEmpty()) run.ctx.store.put(files::sales, 697, stored);
        run.ctx.store.put(files::sales, 701, "027");
        Screen1 s(run);
        click(s.named("Command5(1)"));
        run.ctx.port_serie = 4;
        run.answer(
            {{6, ""}, {0, ""}, {typed.isEmpty() ? 2 : 6, typed}, {bold, ""}, {6, ""}, {0, ""}});
        QVERIFY_THROWS_EXCEPTION(ProgramEnded, s.form.autres_imprimantes());
        QVERIFY(run.ui.asked[2].startsWith("129|"));
        QVERIFY(run.ui.asked[2].endsWith("?|" + offered));
        QCOMPARE(onDisk(sales, 697), record);
        QCOMPARE(onDisk(sales, 700), padded(" "));
        QCOMPARE(onDisk(sales, 701), padded(""));
        QCOMPARE(onDisk(sales, 20), padded("-1"));
        QCOMPARE(onDisk(sales, 70), padded("00 4"));
        QCOMPARE(onDisk(sales, 81), padded(" "));
        QCOMPARE(ScratchDir::read(till).size(), 0);  // nothing in the till's file
        QCOMPARE(s.form.check2(), 0);
    }
    void defaultPrinterDeclined() {
        TestRun run;
        Screen1 s(run);
        run.answer({{7, ""}});
        s.form.autres_imprimantes();
        QCOMPARE(run.ui.asked.size(), 1);
        QCOMPARE(ScratchDir::read(sales).size(), 0);
    }

    // The development tests stand beyond the right edge and are reached by
    // moving the focus there; the keyboard starts them.
    void testButtonsOffWindow() {
        TestRun run({3});
        Screen1 s(run);
        for (const char* name : {"Command9", "Command10", "Command11", "Command12", "Command13",
                                 "Command14", "Command15", "Command16", "Command17", "Command6"}) {
            QWidget* b = s.named(name);
            QVERIFY2(b->isVisible() && b->geometry().left() >= 1024, name);
            QVERIFY(b->focusPolicy() & Qt::TabFocus);
        }
        QVERIFY(!s.named("Command4")->isVisible());
        QVERIFY(!s.named("Command7")->isVisible());
        s.form.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&s.form));
        s.named("Command18")->setFocus();
        for (int k = 0; k < 10 && QApplication::focusWidget() != s.named("Command10"); ++k)
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), s.named("Command10"));
        click(s.named("Command3"));
        s.form.Option1.at(3)->setChecked(true);
        QTest::keyClick(s.named("Command10"), Qt::Key_Space);
        QVERIFY(run.platform.received(3).endsWith(QByteArray("3270241140224") + '\0'));
        QVERIFY(!s.form.MSComm1().portOpen());
    }

    // A network till shows no vendor link; the real platform on a machine
    // without any browser comes back at once and the screen stays.
    void vendorLink() {
        TestRun run({}, TestRun::NetworkTill);
        QCOMPARE(Screen1(run).form.Label7->text(), QStringLiteral("Label7"));
        AppPlatform real;
        Context ctx(real, run.ui);
        run.ui.ctx = &ctx;
        ctx.store.open(files::sales, sales, files::recordLength);
        const QByteArray path = qgetenv("PATH");
        qputenv("PATH", "/nonexistent");
        Form1 form(ctx);
        form.load();
        form.show();
        QElapsedTimer clock;
        clock.start();
        click(form.Image1);
        qputenv("PATH", path);
        QVERIFY(clock.elapsed() < 5000);
        QVERIFY(form.isVisible());
        ctx.store.closeAll();
    }

    // "Imp. Cuisine" shows the kitchen screen without waiting and unloads Form1.
    void kitchenButton() {
        TestRun run;
        QPointer<Form1> form = new Form1(run.ctx);
        form->load();
        form->show();
        click(form->findChild<QWidget*>("Command18"));
        QCOMPARE(run.ui.screensShown, QStringList{"nox_sei2"});
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(form.isNull());
    }

    void screenshot() {
        TestRun run;
        run.ctx.store.put(files::sales, 70, "01 3");
        Screen1 s(run);
        click(s.named("Command3"));
        // The picture is kept only when asked for (KALVO_SCREENSHOTS=folder).
        const QPixmap picture = s.form.grab();
        QVERIFY(!picture.isNull());
        const QString dir = qEnvironmentVariable("KALVO_SCREENSHOTS");
        if (!dir.isEmpty()) QVERIFY(picture.save(dir + "/Form1.png"));
    }
};

QTEST_MAIN(Form1Test)
#include "test_form1.moc"
