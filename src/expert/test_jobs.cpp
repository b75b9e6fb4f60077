#include "expert/test_jobs.h"

#include "print/code_string.h"
#include "store/codec.h"
#include "store/failure.h"
#include "store/fixed_string.h"
#include "store/numeric.h"

namespace test_jobs {
namespace {

using How = Write::How;

constexpr char ESC = 27, GS = 29, LF = 10, CR = 13, TAB = 9, FF = 12;

QByteArray bytes(std::initializer_list<int> values) {
    QByteArray out;
    for (int v : values) out.append(char(v));
    return out;
}

// A row of M blanks, M being the numeric value of the margin box; a negative
// margin fails as the row is built.
QByteArray marginBlanks(const QString& margin) {
    const qint32 count = toInt32(numericValue(margin));
    if (count < 0) throw Failure(QStringLiteral("Argument ou appel de procédure incorrect"));
    if (count > 65535) throw Failure(QStringLiteral("Marge trop grande"));
    return QByteArray(count, ' ');
}

const QByteArray rule(32, '-');

// Composes a job; a failing step ends the composition there, and the job
// carries the failure for the channel to raise after the writes before it.
template <class Body>
Job compose(Body body) {
    Job job;
    try {
        body(job);
    } catch (const Failure& f) {
        job.failed = true;
        job.failure = QString::fromStdString(f.what());
    }
    return job;
}

void initialisations(Job& job, const TicketFields& f) {
    job.add(codeBytes(f.init1));
    job.add(codeBytes(f.init2));
    job.add(codeBytes(f.init3));
}

QByteArray sample(const TicketFields& f, int i) {
    return codec::toBytes(f.samples.value(i));
}

QByteArray zigzag() {
    return bytes({1, 2, 4, 8, 16, 32, 64, 128, 64, 32, 16, 8, 4, 2});
}

QByteArray numbered(int line, const char* ruler) {
    return QByteArray::number(line).rightJustified(2, '0') + ruler;
}

QByteArray dated(const QDate& today) {
    return today.toString(QStringLiteral("dd/MM/yyyy")).toLatin1();
}

const char* const rulerA = "....5....1....5....2....5....3....5....4....5....5....6";
const char* const rulerB =
    "....5....1....5....2....5....3....5....6xxxxxxxxxxxxxxxxxxxxxxxxxxxx01234567890";
const char* const rulerC =
    "....5....1....5....2....5....3....5....6-----xxxxxxxxxxxxxxxxxxxxxxx01234567890"
    "yyyyyyyyyyyyyyyyyyyyyyyyZZZZZZZZZZZ";

void chequeHead(Job& job) {
    job.add(bytes({ESC, '@'}));
    job.add(bytes({ESC, 'c', '0', 4}));
    job.add(bytes({ESC, '!', 8}));
    job.add(bytes({ESC, 'L'}));
}

void slipSetUp(Job& job) {
    job.add(bytes({GS, 'P', 160, 144}));
    job.add(bytes({ESC, 'T', 49}));
    job.add(bytes({ESC, 'W', 0, 0, 0, 0, 28, 2, 128, 5}));
    for (int k = 0; k < 3; ++k) job.add(QByteArray(1, LF));
}

// The amount in words on two lines: words go to the first line while it
// stays within 32 characters with the next word.
std::pair<QByteArray, QByteArray> splitWords(const QByteArray& words) {
    QByteArray rest = words + ' ';
    QByteArray first;
    for (;;) {
        const qsizetype blank = rest.indexOf(' ');
        if (blank < 0) break;
        const QByteArray word = rest.left(blank);
        if (first.size() + word.size() > 32) break;
        first += rest.left(blank + 1);
        rest = rest.mid(blank + 1);
        if (rest.isEmpty()) break;
    }
    return {first, rest};
}

QByteArray framed(const QByteArray& line) {
    return "**" + line.trimmed() + "**";
}

}  // namespace

Job code_barres(const TicketFields& f) {
    return compose([&](Job& job) {
        initialisations(job, f);
        job.add(bytes({GS, 'f', 48, GS, 'h', 162, GS, 'w', 3, GS, 'k', 69, 12}) + "123456789123");
        job.add(QByteArray(10, LF));
    });
}

Job ean_serie(const TicketFields& f) {
    return compose([&](Job& job) {
        initialisations(job, f);
        job.add(marginBlanks(f.margin) + rule + LF, How::Translated);
        const Job tail = ean_usb();
        for (const Write& w : tail.writes) job.add(w.bytes);
    });
}

Job ean_usb() {
    Job job;
    job.add(bytes({GS, 'h', 80}), How::Translated);
    job.add(bytes({GS, 'w', 3}), How::Translated);
    job.add(bytes({GS, 'k', 2}), How::Translated);
    job.add(QByteArray("3270241140224") + '\0', How::Translated);
    return job;
}

Job graphique_serie(const TicketFields& f) {
    return compose([&](Job& job) {
        initialisations(job, f);
        const QByteArray m = marginBlanks(f.margin);
        job.add(m + sample(f, 0) + LF);
        job.add(m + sample(f, 1) + LF);
        job.add(bytes({ESC, '.', 0, 70, 0}));
        for (int k = 0; k < 5; ++k) job.add(zigzag());
        job.add(QByteArray(1, LF));
        job.add(m + codeBytes(f.boldOn) + sample(f, 2) + codeBytes(f.boldOff) + LF,
                How::Translated);
        job.add(m + rule + QByteArray(4, LF), How::Translated);
    });
}

Job graphique_usb() {
    Job job;
    job.add(bytes({ESC, '*', 0, 70, 0}), How::Raw);
    for (int k = 0; k < 5; ++k) job.add(zigzag(), How::Raw);
    job.add(QByteArray(1, LF), How::Raw);
    return job;
}

QList<QByteArray> chequePage(const QDate& today) {
    std::vector<FixedString> a(17, FixedString(69)), b(17, FixedString(47));
    const auto [words1, words2] =
        splitWords("Cent soixante quinze Euros et quatre vingt quinze centimes");
    const QByteArray amount =
        (QByteArray(15, '*') + QByteArray("175.95").trimmed()).right(8) + "**";
    a[8].replace(56, amount);
    a[10].replace(56, "Sarvillon");
    a[12].replace(56, dated(today));
    a[8].replace(1, "Velmarin");
    a[6].replace(15, framed(words1));
    a[7].replace(1, framed(words2));
    b[6].replace(10, "Banque : BQC VARENNAY");
    b[8].replace(10, codec::toBytes(QString::fromUtf8("N° Compte : 123 21452 2569 854")));
    QList<QByteArray> page;
    for (int line = 1; line <= 16; ++line) page << b[line].bytes() + a[line].bytes();
    return page;
}

Job cheque(int number, const QDate& today) {
    Job job;
    chequeHead(job);
    const QByteArray lf(1, LF);
    switch (number) {
        case 1:
            job.add(bytes({GS, 'P', 180, 180, 48}));
            job.add(bytes({ESC, 'T', 1}));
            for (int line = 1; line <= 15; ++line) job.add(numbered(line, rulerA) + LF + CR);
            job.add(QByteArray(40, ' ') + "125.25 Eur" + LF);
            job.add(QByteArray(1, TAB) + "Chaine caracteres 1" + LF);
            job.add(QByteArray(2, LF));
            job.add(QByteArray(1, TAB) + "Velmarin" + LF);
            job.add(QByteArray(2, LF));
            job.add(QByteArray(3, TAB) + "Sarvillon" + " Le " + dated(today) + ' ');
            job.add(QByteArray(" ") + FF);
            break;
        case 2:
            job.add(bytes({ESC, 'W', 185, 0, 0, 0, 255, 0, 200, 2}));
            job.add(bytes({ESC, 'T', 1}));
            for (int line = 1; line <= 15; ++line) job.add(numbered(line, rulerA) + CR);
            job.add(QByteArray(" ") + FF);
            break;
        case 3:
            job.add(bytes({ESC, 'T', 49}));
            job.add(bytes({ESC, 'W', 0, 0, 0, 0, 28, 2, 128, 8}));
            for (int line = 1; line <= 14; ++line) job.add(numbered(line, rulerB) + LF);
            job.add(QByteArray(1, FF));
            job.add(bytes({ESC, 'T', 51}));
            job.add(QByteArray(1, TAB) + "Chaine caracteres 1" + LF);
            job.add(QByteArray(2, LF));
            job.add(QByteArray(1, TAB) + "Velmarin" + LF);
            job.add(QByteArray(2, LF));
            job.add(QByteArray(1, FF));
            break;
        case 4:
            slipSetUp(job);
            for (int line = 1; line <= 16; ++line) job.add(numbered(line, rulerC) + LF);
            job.add(QByteArray(2, FF));
            break;
        default:
            slipSetUp(job);
            for (const QByteArray& line : chequePage(today)) job.add(line + lf);
            job.add(QByteArray(2, FF));
            break;
    }
    return job;
}

}  // namespace test_jobs
