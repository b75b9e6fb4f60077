// The system printers for real: the screens' test prints go through the
// local CUPS server to its PDF printer (cups-pdf), the PDF is read back with
// poppler, and every text and box must stand where the recording printer of
// the flows put it, within one dot of the real printer. Also the cases the
// user can meet: 22 queues, a queue removed between the list and the print,
// and (test app_cups_down) a server that is not there. Needs a CUPS server
// with the queue "PDF" (tools/cups.sh, as test.sh runs it) and, for the
// extra queues, the right to run lpadmin; skips with a message otherwise.
#include <pwd.h>
#include <unistd.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QElapsedTimer>
#include <QListWidget>
#include <QPrinter>
#include <QPrinterInfo>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QtTest>

#include "app/app_printers.h"
#include "guided/form2.h"
#include "guided/selimp4.h"
#include "labels/etiqqq.h"
#include "shell/choix_printer.h"
#include "shell/fonts.h"
#include "shell/image_banks.h"
#include "store/param_table.h"
#include "store/ticket_lines.h"
#include "support/recording_printers.h"
#include "support/test_run.h"

namespace {

const QString pdfQueue = QStringLiteral("PDF");

QString run(const QString& program, const QStringList& args, bool* ok = nullptr) {
    QProcess p;
    p.start(program, args);
    const bool done =
        p.waitForFinished(30000) && p.exitStatus() == QProcess::NormalExit && p.exitCode() == 0;
    if (ok) *ok = done;
    return QString::fromUtf8(p.readAllStandardOutput());
}

// A run of the tool whose system printers are the given ones.
struct PrinterRun {
    struct Platform : TestPlatform {
        explicit Platform(SystemPrinters& p) : system(p) {}
        SystemPrinters& printers() override { return system; }
        SystemPrinters& system;
    };
    explicit PrinterRun(SystemPrinters& printers) : platform(printers) {
        ui.ctx = &ctx;
        ctx.store.open(files::sales, QString::fromLatin1(files::salesName), files::recordLength);
    }
    ~PrinterRun() { ctx.store.closeAll(); }
    ScratchDir dir;
    Platform platform;
    TestInteraction ui;
    Context ctx{platform, ui};
};

// The system's printers as the recording printer of the flows sees them:
// the same names in the same order, the same default.
struct Mirror {
    Mirror() {
        for (const QString& name : QPrinterInfo::availablePrinterNames())
            printers.add(name, name == QPrinterInfo::defaultPrinterName());
    }
    RecordingPrinters printers;
};

// What poppler reads back from a PDF, in points from the page's top left.
struct Word {
    QPointF origin;  // left end of the baseline
    QString text;
};
struct PdfPage {
    QList<Word> words;
    QList<QRectF> boxes;
};

double number(const QRegularExpressionMatch& m, const QString& name) {
    return m.captured(name).toDouble();
}

PdfPage readPdf(const QString& path) {
    PdfPage page;
    // Words and where they start; the baseline comes from the glyphs that
    // pdftocairo places, the word's first glyph standing at its left end.
    const QTemporaryDir scratch;
    const QString svgPath = scratch.filePath(QStringLiteral("page.svg"));
    run(QStringLiteral("pdftocairo"), {QStringLiteral("-svg"), path, svgPath});
    QFile svgFile(svgPath);
    svgFile.open(QIODevice::ReadOnly);
    const QString svg = QString::fromUtf8(svgFile.readAll());
    QList<QPointF> glyphs;
    static const QRegularExpression use(
        QStringLiteral(R"re(<use xlink:href="#glyph[^"]*" x="(?<x>[-\d.]+)" y="(?<y>[-\d.]+)")re"));
    for (const auto& m : use.globalMatch(svg)) glyphs << QPointF(number(m, "x"), number(m, "y"));
    static const QRegularExpression fill(
        QStringLiteral(R"re(fill:rgb\([^"]*" d="([ML\d.\s-]+)Z)re"));
    for (const auto& m : fill.globalMatch(svg)) {
        const QStringList v =
            m.captured(1).split(QRegularExpression(QStringLiteral("[ML\\s]+")), Qt::SkipEmptyParts);
        double x0 = 1e9, y0 = 1e9, x1 = -1e9, y1 = -1e9;
        for (int k = 0; k + 1 < v.size(); k += 2) {
            x0 = qMin(x0, v[k].toDouble()), x1 = qMax(x1, v[k].toDouble());
            y0 = qMin(y0, v[k + 1].toDouble()), y1 = qMax(y1, v[k + 1].toDouble());
        }
        const QRectF box(QPointF(x0, y0), QPointF(x1, y1));
        page.boxes << box;
    }
    static const QRegularExpression word(QStringLiteral(
        R"re(<word xMin="(?<x>[\d.]+)" yMin="(?<y0>[\d.]+)" xMax="[\d.]+" yMax="(?<y1>[\d.]+)">(?<t>[^<]*)</word>)re"));
    const QString words = run(QStringLiteral("pdftotext"), {QStringLiteral("-bbox"), path, "-"});
    for (const auto& m : word.globalMatch(words)) {
        const double x = number(m, "x");
        double baseline = -1;
        for (QPointF g : glyphs)
            if (qAbs(g.x() - x) < 0.01 && g.y() > number(m, "y0") && g.y() < number(m, "y1") + 1)
                baseline = g.y();
        QString text = m.captured("t");
        text.replace("&amp;", "&").replace("&apos;", "'").replace("&quot;", "\"");
        page.words << Word{QPointF(x, baseline), text};
    }
    return page;
}

// Where cups-pdf writes what root or the user prints.
QString pdfFolder() {
    const passwd* user = getpwuid(getuid());
    return QString::fromLocal8Bit(user ? user->pw_dir : "") + QStringLiteral("/PDF");
}

// The jobs CUPS keeps, from "lpstat -W all -o": queue and number.
struct Job {
    QString queue;
    int id = 0;
};
QList<Job> jobs() {
    QList<Job> all;
    static const QRegularExpression job(QStringLiteral(R"re(^(\S+)-(\d+)\s)re"));
    for (const QString& line : run(QStringLiteral("lpstat"), {"-W", "all", "-o"}).split('\n'))
        if (const auto m = job.match(line); m.hasMatch())
            all << Job{m.captured(1), m.captured(2).toInt()};
    return all;
}
Job lastJob() {
    Job last;
    for (const Job& j : jobs())
        if (j.id > last.id) last = j;
    return last;
}

// The PDFs of the jobs after `after`, once `count` of them are complete
// (cups-pdf names each file after its job: "job_12-...").
QStringList newPdfs(const Job& after, int count) {
    static const QRegularExpression name(QStringLiteral(R"re(^job_(\d+)-)re"));
    QStringList done;
    for (int wait = 0; wait < 300; ++wait) {
        QTest::qWait(100);
        done.clear();
        for (const QFileInfo& f : QDir(pdfFolder()).entryInfoList({"job_*.pdf"}, QDir::Files)) {
            bool complete = false;
            if (name.match(f.fileName()).captured(1).toInt() > after.id && f.size() > 0)
                run(QStringLiteral("pdfinfo"), {f.filePath()}, &complete);
            if (complete) done << f.filePath();
        }
        if (done.size() >= count) break;
    }
    return done;
}

// Every mark of the recorded document must be on the PDF page within one
// dot of the real printer: texts by their first word's start and baseline,
// and the words of the line; boxes by their corners.
void compare(const RecordingPrinters::Document& recorded, const PdfPage& page) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setPrinterName(pdfQueue);
    const QPointF corner = printer.pageLayout().paintRect(QPageLayout::Point).topLeft();
    const double dot = 72.0 / printer.resolution();
    RecordingPrinters measure;
    measure.add(QStringLiteral("m"));
    const auto ruler = measure.open(QStringLiteral("m"));
    const auto points = [&](QPointF twips) { return corner + twips / 20.0; };
    for (const RecordingPrinters::Mark& mark : recorded.marks) {
        if (mark.text.isEmpty()) {
            const QRectF want(points(mark.twips.topLeft()), points(mark.twips.bottomRight()));
            const bool found = std::any_of(page.boxes.begin(), page.boxes.end(), [&](QRectF b) {
                return QLineF(b.topLeft(), want.topLeft()).length() < dot &&
                       QLineF(b.bottomRight(), want.bottomRight()).length() < dot;
            });
            QVERIFY2(found,
                     qPrintable(QStringLiteral("no box at %1,%2").arg(want.x()).arg(want.y())));
            continue;
        }
        const QString text = mark.text.simplified();
        if (text.isEmpty()) continue;  // blanks leave no mark on paper
        const qsizetype lead = mark.text.indexOf(text.front());
        const QFontMetricsF metrics = ruler->metrics(mark.font);
        const double twipsPerDot = 1440.0 / ruler->dpi();
        const QPointF want =
            points(mark.twips.topLeft() +
                   QPointF(metrics.horizontalAdvance(mark.text.left(lead)), metrics.ascent()) *
                       twipsPerDot);
        QStringList line;
        for (const Word& w : page.words)
            if (qAbs(w.origin.y() - want.y()) < dot && w.origin.x() > want.x() - dot)
                line << w.text;
        bool placed = false;
        for (const Word& w : page.words)
            placed |= qAbs(w.origin.x() - want.x()) < dot && qAbs(w.origin.y() - want.y()) < dot;
        QVERIFY2(placed,
                 qPrintable(
                     QStringLiteral("\"%1\" not at %2,%3").arg(text).arg(want.x()).arg(want.y())));
        QCOMPARE(line.join(' '), text);
    }
}

void seedTicketLines() {
    RecordStore store;
    store.open(files::ticketLines, QString::fromLatin1(files::ticketLinesName), 256);
    const auto put = [&](int n, const char* text, const char* font, float size, int style) {
        TicketLine l;
        l.texte = text;
        l.police = font;
        l.taille = size;
        l.gras = style & 1;
        l.italique = style & 2;
        l.souligne = style & 4;
        store.put(files::ticketLines, n, l.toRecord());
    };
    put(1, "#INIT#01-02-2025", "INIT", 8, 0);
    put(2, "  MAGASIN DU CENTRE  ", "Arial", 12, 1);
    put(4, "Rue des Lilas", "Arial", 9, 2);
    put(5, "Tel 01 23 45 67 89", "Courier New", 10, 4);
    put(9, "Ticket de test", "Times New Roman", 8, 7);
    put(10, "Merci de votre visite", "Arial", 9, 0);
    put(17, "A bientot", "Arial", 8, 2);
}

// The test ticket of selimp4 on the named printer, answered "Non".
void printTicket(Context& ctx, TestInteraction& ui, const QString& printer) {
    seedTicketLines();
    selimp4 screen(ctx);
    screen.load();
    const auto items = screen.combo4->findItems(printer, Qt::MatchExactly);
    QVERIFY(!items.isEmpty());
    screen.combo4->setCurrentItem(items.first());
    ui.replies = {{7, ""}, {1, ""}};
    screen.bt_prog_Click(1);
    QCOMPARE(ui.asked.value(0), QString::fromUtf8("4|ON|Le ticket s'est-il imprimé ?"));
}

void testForm2(Context& ctx) {
    Form2 screen(ctx);
    screen.load();
    screen.Combo1->setEditText("10");
    screen.Combo2->setEditText("3");
    screen.Combo3->setEditText("2");
    screen.Check1->setChecked(true);
    screen.bt_prog_Click(1);
}

void labelButtons(Context& ctx) {
    ecrit_param(ctx.store, QStringLiteral("IMP_ETIQ_DEF"), pdfQueue);
    etiqqq screen(ctx);
    screen.load();
    screen.Command1->click();
    screen.Command2->click();
}

}  // namespace

class CupsPrinting : public QObject {
    Q_OBJECT
  private slots:
    void initTestCase() {
        installFonts();
        available_ = QPrinterInfo::availablePrinterNames().contains(pdfQueue);
        // Queues an interrupted run of this test left behind.
        for (const QString& queue : QPrinterInfo::availablePrinterNames())
            if (queue.startsWith(QLatin1String("KALVO_"))) run("lpadmin", {"-x", queue});
        if (available_) firstJob_ = lastJob();
        // The default printer of this process only (CUPS reads PRINTER).
        qputenv("PRINTER", pdfQueue.toLatin1());
    }

    void cleanupTestCase() {
        // The PDFs of this run's jobs, once all are done, and only those.
        if (available_) {
            const QList<Job> all = jobs();
            const auto mine = std::count_if(all.begin(), all.end(),
                                            [&](const Job& j) { return j.id > firstJob_.id; });
            for (const QString& pdf : newPdfs(firstJob_, int(mine))) QFile::remove(pdf);
        }
        for (const QString& queue : made_) run(QStringLiteral("lpadmin"), {"-x", queue});
    }

    // The same ticket on the recording printer and on paper.
    void ticketOnPaper() {
        needCups();
        Mirror mirror;
        {
            PrinterRun recorded(mirror.printers);
            printTicket(recorded.ctx, recorded.ui, pdfQueue);
        }
        QCOMPARE(mirror.printers.documents.size(), size_t(1));
        AppPrinters cups;
        PrinterRun real(cups);
        const Job before = lastJob();
        QElapsedTimer clock;
        clock.start();
        printTicket(real.ctx, real.ui, pdfQueue);
        qInfo("the ticket handed to CUPS in %lld ms", clock.elapsed());
        const QStringList pdfs = newPdfs(before, 1);
        QCOMPARE(pdfs.size(), 1);
        compare(mirror.printers.documents.front(), readPdf(pdfs.front()));
        const QString shots = qEnvironmentVariable("KALVO_SCREENSHOTS");
        if (!shots.isEmpty())
            run(QStringLiteral("pdftoppm"), {"-png", "-r", "110", "-singlefile", "-W", "380", "-H",
                                             "220", pdfs.front(), shots + "/edition_selimp4"});
    }

    void form2AndLabelTestsOnPaper() {
        needCups();
        Mirror mirror;
        {
            PrinterRun recorded(mirror.printers);
            testForm2(recorded.ctx);
            labelButtons(recorded.ctx);
        }
        QCOMPARE(mirror.printers.documents.size(), size_t(4));
        AppPrinters cups;
        PrinterRun real(cups);
        const Job before = lastJob();
        testForm2(real.ctx);
        labelButtons(real.ctx);
        const QStringList pdfs = newPdfs(before, 4);
        QCOMPARE(pdfs.size(), 4);
        // cups-pdf may finish them in any order: each document by its text.
        for (const RecordingPrinters::Document& document : mirror.printers.documents) {
            const QString first = document.marks.front().text.trimmed();
            bool seen = false;
            for (const QString& pdf : pdfs) {
                const PdfPage page = readPdf(pdf);
                if (page.words.isEmpty() || !first.startsWith(page.words.front().text)) continue;
                compare(document, page);
                seen = true;
            }
            QVERIFY2(seen, qPrintable(first));
        }
    }

    // 22 queues: all listed, the table keeps 21, so the last line prints on
    // the printer chosen before; a second enumeration adds nothing.
    void twentyTwoQueues() {
        needCups();
        for (int n = 1; n <= 22; ++n)
            makeQueue(QStringLiteral("KALVO_T%1").arg(n, 2, 10, QChar('0')));
        AppPrinters cups;
        PrinterRun real(cups);
        QElapsedTimer clock;
        clock.start();
        liste_imprimantes(real.ctx);
        qInfo("%lld printers listed in %lld ms", qint64(real.ctx.icc().CbPrinters.size()),
              clock.elapsed());
        liste_imprimantes(real.ctx);
        const QStringList listed = real.ctx.icc().CbPrinters;
        QCOMPARE(listed, QPrinterInfo::availablePrinterNames());
        QVERIFY(listed.size() >= 22);
        QCOMPARE(real.ctx.nb_imprimantes, qint16(listed.size()));
        printTicket(real.ctx, real.ui, listed[2]);
        QCOMPARE(lastJob().queue, listed[2]);
        real.ui.asked.clear();
        printTicket(real.ctx, real.ui, listed.last());
        QCOMPARE(lastJob().queue, listed[2]);
    }

    // A queue removed after the list: nothing printed anywhere (Qt would
    // quietly take another printer), and the question all the same.
    void queueRemovedAfterTheList() {
        needCups();
        const QString gone = QStringLiteral("KALVO_GONE");
        makeQueue(gone);
        AppPrinters cups;
        PrinterRun real(cups);
        selimp4 screen(real.ctx);
        screen.load();
        screen.combo4->setCurrentItem(screen.combo4->findItems(gone, Qt::MatchExactly).value(0));
        run(QStringLiteral("lpadmin"), {"-x", gone});
        const int before = lastJob().id;
        real.ui.replies = {{7, ""}, {1, ""}};
        QElapsedTimer clock;
        clock.start();
        screen.bt_prog_Click(1);
        qInfo("a removed printer: the question after %lld ms", clock.elapsed());
        QCOMPARE(real.ui.asked.value(0), QString::fromUtf8("4|ON|Le ticket s'est-il imprimé ?"));
        QCOMPARE(lastJob().id, before);
    }

    // Run by the test app_cups_down, with CUPS_SERVER leading nowhere.
    void serverDown() {
        if (!qEnvironmentVariable("CUPS_SERVER").startsWith("/nonexistent"))
            QSKIP("runs as the test app_cups_down, with CUPS_SERVER leading nowhere");
        AppPrinters cups;
        PrinterRun real(cups);
        QElapsedTimer clock;
        clock.start();
        selimp4 screen(real.ctx);
        screen.load();
        QCOMPARE(screen.combo4->count(), 0);
        QCOMPARE(imprimante_defaut(real.ctx), QString());
        testForm2(real.ctx);  // silence
        real.ui.replies = {{1, ""}};
        screen.bt_prog_Click(1);
        QCOMPARE(real.ui.asked,
                 QStringList{QString::fromUtf8("0|Vous devez sélectionner une imprimante !")});
        qInfo("without a CUPS server: list, test print and message in %lld ms", clock.elapsed());
    }

  private:
    void needCups() {
        if (!available_) QSKIP("no CUPS printer \"PDF\": run tools/cups.sh as root (test.sh does)");
    }
    void makeQueue(const QString& name) {
        const QString ppd = run(QStringLiteral("sh"),
                                {"-c", "find /usr/share/ppd -iname 'CUPS-PDF*.ppd' | head -n 1"})
                                .trimmed();
        bool ok = false;
        run(QStringLiteral("lpadmin"),
            {"-p", name, "-E", "-v", "cups-pdf:/", "-P", ppd, "-o",
             "pdftops-renderer-default=pdftocairo", "-o", "Label-default=1"},
            &ok);
        if (!ok) QSKIP("lpadmin refused to add a queue (root or lpadmin group needed)");
        made_ << name;
    }
    bool available_ = false;
    Job firstJob_;
    QStringList made_;
};

QTEST_MAIN(CupsPrinting)
#include "test_cups_printing.moc"
