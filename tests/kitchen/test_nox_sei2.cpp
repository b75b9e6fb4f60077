// The kitchen printer's screen on its own file and its own port, and the
// hand-back to Form1, which finds its own records again.
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QtTest>

#include "expert/form1.h"
#include "expert/printer_test_kit.h"
#include "kitchen/nox_sei2.h"
#include "shell/image_banks.h"

namespace {

const QString sales = QString::fromLatin1(files::salesName);
const QString kitchen = QString::fromLatin1(files::kitchenName);

void click(QWidget* w) {
    QVERIFY(w);
    QTest::mouseClick(w, Qt::LeftButton, {}, w->rect().center());
}

// The ticket printer's records as a till holds them before the kitchen screen.
void seedTicketPrinter(Context& ctx) {
    ctx.store.put(files::sales, 27, "027:064:   :   :   :");
    ctx.store.put(files::sales, 70, "01 3");
    ctx.store.put(files::sales, 99, "19200,n,8,1");
    ctx.store.put(files::sales, 84, "1");
}

}  // namespace

class KitchenTest : public QObject {
    Q_OBJECT
  private slots:
    void loadPrintAndHandBack() {
        TestRun run({4});
        seedTicketPrinter(run.ctx);
        const QByteArray salesBefore = TestRun::whole(sales);
        QPointer<nox_sei2> k = new nox_sei2(run.ctx);
        k->load();
        k->show();

        // A fresh kitchen file: its marker without a date, 1000 blank records.
        const QByteArray made = TestRun::whole(kitchen);
        QCOMPARE(made.size(), 1001 * 20);
        QCOMPARE(made.left(20), padded("#INIT#"));
        QCOMPARE(made.mid(20).count(' '), 1000 * 20);
        QCOMPARE(k->windowTitle(), QStringLiteral("Imprimante Cuisine"));
        QCOMPARE(k->Label13->text(), QStringLiteral("Imprimante Cuisine"));
        QVERIFY(k->Label13->isVisible());
        QVERIFY(!k->findChild<QWidget*>("Check111"));
        QVERIFY(!k->findChild<QWidget*>("Text1(0)"));
        QVERIFY(!k->findChild<QWidget*>("Check2"));
        QCOMPARE(k->Text6.at(0)->text(), QStringLiteral("9600"));
        for (int i = 1; i <= 12; ++i) QVERIFY(!k->Option1.at(i)->isChecked());

        // The model does not clear what it does not set.
        k->Text2.at(2)->setText("027");
        click(k->findChild<QWidget*>("Command3"));
        QCOMPARE(k->Text2.at(2)->text(), QStringLiteral("027"));
        k->Text2.at(2)->setText("");
        QCOMPARE(k->Text8.at(2)->text(), QStringLiteral("016"));

        k->Combo1->setCurrentIndex(2);
        k->Check1->setChecked(true);
        click(k->Option1.at(4));
        run.ctx.chaine_travail = "reste";
        click(k->li_prog.at(1));
        QVERIFY(run.ui.messageBoxes.isEmpty());
        const QByteArray wire = run.platform.received(4);
        const QString mismatch = goldenMismatch("kitchen", "kitchen_ticket.wire", hexLines(wire));
        QVERIFY2(mismatch.isEmpty(), qPrintable(mismatch));
        QVERIFY(wire.contains("    \x1b\x45\x01Test Imprimante Ticket\x1b\x45"));
        QVERIFY(wire.contains(QByteArray("    Accents :  \x82 \x8a \x88 \x85 \x87\n\n")));
        QCOMPARE(run.ctx.mode_accent_cuisine, qint16(2));
        QCOMPARE(run.ctx.mode_accent, qint16(0));
        QVERIFY(run.ctx.chaine_travail.isEmpty());
        QVERIFY(!run.ctx.icc().MSCuisine->portOpen());

        // "Fin" saves to the kitchen's file, answers record 25, closes 142 and 20.
        run.answer({{6, ""}});
        click(k->li_prog.at(0));
        QCOMPARE(run.ui.asked,
                 QStringList{QString::fromUtf8("4|Utilisez vous une imprimante en cuisine "
                                               "indépendante ?")});
        QCOMPARE(run.ui.screensShown, QStringList{"Form1"});
        QCOMPARE(TestRun::onDisk(kitchen, 70), padded("   4"));
        QCOMPARE(TestRun::onDisk(kitchen, 97), padded("027116016"));
        QCOMPARE(TestRun::onDisk(kitchen, 84), padded("2"));
        QCOMPARE(TestRun::onDisk(kitchen, 19), padded("4"));
        QCOMPARE(TestRun::onDisk("WFICH142.WDO", 25), padded("1"));
        QCOMPARE(TestRun::whole("WFICH142.WDO").size(), 201 * 20);
        QVERIFY(!run.ctx.store.isOpen(files::main));
        QVERIFY(!run.ctx.store.isOpen(files::sales));
        QCOMPARE(TestRun::whole(sales), salesBefore);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(k.isNull());

        // Form1 reopens the ticket printer's file and finds its records.
        Form1 f(run.ctx);
        f.load();
        QVERIFY(f.Option1.at(3)->isChecked());
        QCOMPARE(run.ctx.port_serie, qint16(3));
        QCOMPARE(f.Text2.at(1)->text(), QStringLiteral("064"));
        QCOMPARE(f.Text6.at(0)->text(), QStringLiteral("19200"));
        QCOMPARE(f.Combo1->currentIndex(), 1);
    }

    // Any reply but yes says the kitchen has no printer of its own; leaving
    // without a change still writes every record.
    void closingAnswers_data() {
        QTest::addColumn<int>("reply");
        QTest::addColumn<QByteArray>("record25");
        QTest::newRow("yes") << 6 << padded("1");
        QTest::newRow("no") << 7 << padded("0");
        QTest::newRow("escape") << 2 << padded("0");
    }
    void closingAnswers() {
        QFETCH(int, reply);
        QFETCH(QByteArray, record25);
        TestRun run;
        auto* k = new nox_sei2(run.ctx);
        k->load();
        run.answer({{reply, ""}});
        k->fin_cuisine();
        QCOMPARE(TestRun::onDisk("WFICH142.WDO", 25), record25);
        QCOMPARE(TestRun::onDisk(kitchen, 99), padded("9600,n,8,1"));
        QCOMPARE(TestRun::onDisk(kitchen, 27), padded("   :   :   :   :   :"));
        QCOMPARE(TestRun::onDisk(kitchen, 700), padded(""));  // no drawer here
        QCOMPARE(TestRun::onDisk(kitchen, 1), padded("#INIT#"));
    }

    // No port chosen and none on entry: the message once, nothing sent.
    void portFailure() {
        TestRun run({4});
        nox_sei2 k(run.ctx);
        k.load();
        k.imprime_cuisine();
        QCOMPARE(run.ui.messageBoxes, QStringList{"Erreur de port"});
    }

    void screenshot() {
        TestRun run;
        nox_sei2 k(run.ctx);
        k.load();
        k.show();
        click(k.findChild<QWidget*>("Command3"));
        const QString dir = qEnvironmentVariable("KALVO_SOURCE_DIR") + "/docs/screenshots";
        QDir().mkpath(dir);
        QVERIFY(k.grab().save(dir + "/nox_sei2.png"));
    }
};

QTEST_MAIN(KitchenTest)
#include "test_nox_sei2.moc"
