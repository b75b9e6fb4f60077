// The bar code test of the expert screen, byte for byte: its button stays
// hidden, so no flow reaches it (the other development tests are the
// expert_development_buttons flow's).
#include <QtTest>

#include "expert/test_jobs.h"
#include "print/standard_ticket.h"
#include "support/golden.h"

class ExpertJobs : public QObject {
    Q_OBJECT
  private slots:
    void codeBarres() {
        const Job job = test_jobs::code_barres(standardTicketFields());
        const QString mismatch = goldenMismatch("expert", "code_barres.job", describeJob(job));
        QVERIFY2(mismatch.isEmpty(), qPrintable(mismatch));
    }
};

QTEST_GUILESS_MAIN(ExpertJobs)
#include "test_expert_jobs.moc"
