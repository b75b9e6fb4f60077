#include "print/test_ticket.h"

#include <functional>
#include <initializer_list>

#include "print/code_string.h"
#include "store/codec.h"
#include "store/failure.h"
#include "store/numeric.h"

namespace {

using How = Write::How;

const QByteArray lineFeed(1, '\n');
const QByteArray ruleLine(32, '-');

// The row of M blanks. A negative count fails as the suite's own row of
// blanks does; a count beyond 65535 is refused too, so that a mistyped
// margin cannot ask for gigabytes.
QByteArray marginBlanks(const QString& margin) {
    const double count = roundHalfEven(numericValue(margin));
    if (!(count >= 0)) throw Failure(QStringLiteral("Marge négative"));
    if (count > 65535) throw Failure(QStringLiteral("Marge trop grande"));
    return QByteArray(qsizetype(count), ' ');
}

QByteArray sample(const TicketFields& f, int index) {
    return codec::toBytes(f.samples.value(index));
}

// Adds writes to a job until a step fails; the failure is kept in the job
// at the place where it happened and nothing after it is composed.
class Composer {
  public:
    explicit Composer(Job& job) : job_(job) {}

    void step(const std::function<void()>& add) {
        if (job_.failed) return;
        try {
            add();
        } catch (const Failure& failure) {
            job_.failed = true;
            job_.failure = QString::fromStdString(failure.what());
        }
    }

    void initialisations(const TicketFields& f) {
        for (const QStringList* fields : {&f.init1, &f.init2, &f.init3}) {
            step([&] { job_.add(codeBytes(*fields), How::Direct); });
        }
    }

    void feedLines(const QString& feed) {
        step([&] {
            const qint16 count = numericInt16(feed);
            for (qint16 i = 1; i <= count; ++i) job_.add(" \n", How::Direct, true);
        });
    }

    void cut(const TicketFields& f) {
        if (!f.cutWanted) return;
        for (const QString& piece : cutPieces(f.cut)) {
            if (isBlankPiece(piece)) continue;
            step([&] { job_.add(QByteArray(1, codeByte(piece)), How::Direct); });
        }
        step([&] { job_.add(" \n", How::Direct); });
    }

  private:
    Job& job_;
};

// Both tickets share their order of writes; they differ only in the lines
// printed between bold on and bold off.
Job compose(const TicketFields& f, std::initializer_list<int> boldSamples) {
    Job job;
    Composer c(job);
    c.initialisations(f);
    QByteArray m;
    c.step([&] {
        m = marginBlanks(f.margin);
        job.add(m + ruleLine + lineFeed, How::Translated);
    });
    c.step([&] { job.add(m + sample(f, 0) + lineFeed, How::Direct); });
    c.step([&] { job.add(m + sample(f, 1) + lineFeed, How::Direct); });
    for (int index : boldSamples) {
        c.step([&] {
            job.add(m + codeBytes(f.boldOn) + sample(f, index) + codeBytes(f.boldOff) + lineFeed,
                    How::Translated);
        });
    }
    c.step([&] {
        job.add(m + codeBytes(f.italicOn) + sample(f, 3) + codeBytes(f.italicOff) + lineFeed,
                How::Translated);
    });
    c.step([&] { job.add(m + sample(f, 4) + lineFeed, How::Translated); });
    c.step([&] { job.add(m + ruleLine + lineFeed, How::Translated); });
    c.feedLines(f.feed);
    c.cut(f);
    return job;
}

}  // namespace

Job composeTestTicket(const TicketFields& f) {
    return compose(f, {2});
}

// The kitchen prints the two headings again in bold before the bold sample.
Job composeKitchenTicket(const TicketFields& f) {
    return compose(f, {0, 1, 2});
}
