// The kitchen printer's screen on its own file and its own port, and the
// hand-back to Form1, which finds its own records again. The wire and the
// records of a whole print and save are the kitchen_hand_back flow's.
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QtTest>

#include "expert/form1.h"
#include "kitchen/nox_sei2.h"
#include "shell/image_banks.h"
#include "support/test_run.h"
#include "support/widgets.h"

namespace {
const QString kitchen = QString::fromLatin1(files::kitchenName);
const QString mainFile = QStringLiteral("WFICH142.WDO");
}  // namespace

class KitchenTest : public QObject {
    Q_OBJECT
  private slots:
    void loadPrintAndHandBack() {
        TestRun run({4});
        run.ctx.store.put(files::sales, 84, "1");
        const QByteArray salesBefore = ScratchDir::read(files::salesName);
        QPointer<nox_sei2> k = new nox_sei2(run.ctx);
        k->load();
        k->show();
        QCOMPARE(k->windowTitle(), QStringLiteral("Imprimante Cuisine"));
        QCOMPARE(k->Label13->text(), QStringLiteral("Imprimante Cuisine"));
        QVERIFY(k->Label13->isVisible());
        for (const char* absent : {"Check111", "Text1(0)", "Check2"})
            QVERIFY2(!k->findChild<QWidget*>(absent), absent);

        // The model does not clear what it does not set.
        k->Text2.at(2)->setText("027");
        click(k->findChild<QWidget*>("Command3"));
        QCOMPARE(k->Text2.at(2)->text(), QStringLiteral("027"));
        k->Combo1->setCurrentIndex(2);
        click(k->Option1.at(4));
        run.ctx.chaine_travail = "reste";
        click(k->li_prog.at(1));
        QVERIFY(run.ui.messageBoxes.isEmpty());
        QVERIFY(run.platform.received(4).contains("\x1b\x45\x01Test Imprimante Ticket"));
        QCOMPARE(run.ctx.mode_accent_cuisine, qint16(2));
        QCOMPARE(run.ctx.mode_accent, qint16(0));
        QVERIFY(run.ctx.chaine_travail.isEmpty());
        QVERIFY(!run.ctx.icc().MSCuisine->portOpen());

        // "Fin" saves to the kitchen's file, closes 142 and 20, unloads.
        run.answer({{6, ""}});
        click(k->li_prog.at(0));
        QCOMPARE(run.ui.screensShown, QStringList{"Form1"});
        QCOMPARE(ScratchDir::record(kitchen, 70), padded("   4"));
        QVERIFY(!run.ctx.store.isOpen(files::main));
        QVERIFY(!run.ctx.store.isOpen(files::sales));
        QCOMPARE(ScratchDir::read(files::salesName), salesBefore);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(k.isNull());

        // Form1 reopens the ticket printer's file and finds its records.
        Form1 f(run.ctx);
        f.load();
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
        QCOMPARE(ScratchDir::record(mainFile, 25), record25);
        QCOMPARE(ScratchDir::record(kitchen, 99), padded("9600,n,8,1"));
        QCOMPARE(ScratchDir::record(kitchen, 27), padded("   :   :   :   :   :"));
        QCOMPARE(ScratchDir::record(kitchen, 700), padded(""));  // no drawer here
        QCOMPARE(ScratchDir::record(kitchen, 1), padded("#INIT#"));
    }

    // No port chosen and none on entry: the message once, nothing sent.
    void portFailure() {
        TestRun run({4});
        nox_sei2 k(run.ctx);
        k.load();
        k.imprime_cuisine();
        QCOMPARE(run.ui.messageBoxes, QStringList{"Erreur de port"});
        QCOMPARE(run.platform.received(4), QByteArray());
    }

    void screenshot() {
        TestRun run;
        nox_sei2 k(run.ctx);
        k.load();
        k.show();
        click(k.findChild<QWidget*>("Command3"));
        // The picture is kept only when asked for (KALVO_SCREENSHOTS=folder).
        const QPixmap picture = k.grab();
        QVERIFY(!picture.isNull());
        const QString dir = qEnvironmentVariable("KALVO_SCREENSHOTS");
        if (!dir.isEmpty()) QVERIFY(picture.save(dir + "/nox_sei2.png"));
    }
};

QTEST_MAIN(KitchenTest)
#include "test_nox_sei2.moc"
