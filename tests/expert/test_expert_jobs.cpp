// The development tests of the expert screen, composed byte for byte.
#include <QtTest>
#include <functional>

#include "expert/test_jobs.h"
#include "print/standard_ticket.h"
#include "support/golden.h"

namespace {

const QDate today(2026, 11, 16);

}  // namespace

class ExpertJobs : public QObject {
    Q_OBJECT
  private slots:
    void everyJob_data() {
        QTest::addColumn<QString>("golden");
        QTest::addColumn<std::function<Job()>>("compose");
        const TicketFields f = standardTicketFields();
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

    // The page of cheque 5 as it lies on the slip: the stub, then the body,
    // every line 116 columns.
    void chequeFivePage() {
        const QList<QByteArray> page = test_jobs::chequePage(today);
        QByteArray text;
        for (const QByteArray& line : page) text += line + '\n';
        const QString mismatch = goldenMismatch("expert", "cheque5_page.txt", text);
        QVERIFY2(mismatch.isEmpty(), qPrintable(mismatch));
    }

    // A failing margin stops the job after the writes before it; blank
    // initialisations are still three empty writes.
    void failureAndBlankSequences() {
        TicketFields f = standardTicketFields();
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
