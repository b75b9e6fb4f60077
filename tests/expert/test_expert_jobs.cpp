// The development tests of the expert screen, composed byte for byte.
#include <QtTest>
#include <functional>

#include "expert/printer_test_kit.h"
#include "expert/test_jobs.h"

namespace {

// The fields as the standard EPSON model leaves them, margin 4.
TicketFields standardFields() {
    TicketFields f;
    f.init1 = {"027", "064", " ", " ", " "};
    f.init2 = {"027", "116", "016", " ", " ", " "};
    f.init3 = {" ", " ", " ", " ", " ", " "};
    f.boldOn = {"027", "069", "001", " ", " ", " "};
    f.boldOff = {"027", "069", "000", " ", " ", " "};
    f.italicOn = {"027", "045", "049", " ", " ", " "};
    f.italicOff = {"027", "045", "048", " ", " ", " "};
    f.cut = {"029", "086", "048", " ", " "};
    f.margin = "4";
    f.feed = "5";
    f.samples = {"Test Imprimante Ticket", "Logiciel de Caisse", "Texte en Gras",
                 "Texte en Italique", QString::fromUtf8("Accents :  é è ê à ç")};
    return f;
}

const QDate today(2026, 11, 16);

}  // namespace

class ExpertJobs : public QObject {
    Q_OBJECT
  private slots:
    void everyJob_data() {
        QTest::addColumn<QString>("golden");
        QTest::addColumn<std::function<Job()>>("compose");
        const TicketFields f = standardFields();
        QTest::newRow("code_barres")
            << "code_barres.job" << std::function<Job()>([f] { return test_jobs::code_barres(f); });
        QTest::newRow("ean_serie")
            << "ean_serie.job" << std::function<Job()>([f] { return test_jobs::ean_serie(f); });
        QTest::newRow("ean_usb") << "ean_usb.job"
                                 << std::function<Job()>([] { return test_jobs::ean_usb(); });
        QTest::newRow("graphique_serie")
            << "graphique_serie.job"
            << std::function<Job()>([f] { return test_jobs::graphique_serie(f); });
        QTest::newRow("graphique_usb")
            << "graphique_usb.job"
            << std::function<Job()>([] { return test_jobs::graphique_usb(); });
        for (int n = 1; n <= 5; ++n)
            QTest::newRow(qPrintable(QStringLiteral("cheque%1").arg(n)))
                << QStringLiteral("cheque%1.job").arg(n)
                << std::function<Job()>([n] { return test_jobs::cheque(n, today); });
    }
    void everyJob() {
        QFETCH(QString, golden);
        QFETCH(std::function<Job()>, compose);
        const QString mismatch = goldenMismatch("expert", golden, describeJob(compose()));
        QVERIFY2(mismatch.isEmpty(), qPrintable(mismatch));
    }

    // The page of cheque 5 as it lies on the slip: the stub, then the body.
    void chequeFivePage() {
        const QList<QByteArray> page = test_jobs::chequePage(today);
        QCOMPARE(page.size(), 16);
        for (const QByteArray& line : page) QCOMPARE(line.size(), 116);
        QByteArray text;
        for (const QByteArray& line : page) text += line + '\n';
        const QString mismatch = goldenMismatch("expert", "cheque5_page.txt", text);
        QVERIFY2(mismatch.isEmpty(), qPrintable(mismatch));
        // Body columns count from 48: amount, town and date stand at 56 of the body.
        QCOMPARE(page[7].mid(47 + 55, 10), QByteArray("**175.95**"));
        QCOMPARE(page[11].mid(47 + 55, 10), QByteArray("16/11/2026"));
        QCOMPARE(page[5].mid(47 + 14).trimmed(), QByteArray("**Cent soixante quinze Euros et**"));
        QCOMPARE(page[6].mid(47).trimmed(), QByteArray("**quatre vingt quinze centimes**"));
        QCOMPARE(page[7].mid(9, 31), QByteArray("N\xb0 Compte : 123 21452 2569 854 "));
    }

    // A failing margin stops the job after the writes before it; blank
    // initialisations are still three empty writes.
    void failureAndBlankSequences() {
        TicketFields f = standardFields();
        f.margin = "-2";
        f.init1 = f.init3;
        const Job job = test_jobs::ean_serie(f);
        QVERIFY(job.failed);
        QCOMPARE(job.writes.size(), size_t(3));
        QVERIFY(job.writes[0].bytes.isEmpty());
        f.margin = "0";
        f.boldOn[0] = "999";
        QVERIFY(test_jobs::graphique_serie(f).failed);
    }
};

QTEST_GUILESS_MAIN(ExpertJobs)
#include "test_expert_jobs.moc"
