#include "printer_window.h"

#include <signal.h>
#include <unistd.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QHBoxLayout>
#include <QPainter>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollArea>
#include <QScrollBar>
#include <QSocketNotifier>
#include <QStringList>
#include <QVBoxLayout>
#include <cstdio>

#include "accent_advice.h"
#include "escpos/dump.h"
#include "escpos/render.h"

// The roll: the tickets one under the other, on a grey table, with their
// numbers beside them.
class RollView : public QWidget {
  public:
    using QWidget::QWidget;
    void setTickets(std::vector<std::pair<int, QImage>> tickets) {
        tickets_ = std::move(tickets);
        int height = gap;
        int width = 200;
        for (const auto& [number, image] : tickets_) {
            height += image.height() + gap;
            width = std::max(width, image.width() + 2 * margin);
        }
        setMinimumSize(width, height);
        update();
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter p(this);
        p.fillRect(rect(), QColor(70, 74, 80));
        int y = gap;
        for (const auto& [number, image] : tickets_) {
            const int x = (width() - image.width()) / 2;
            p.fillRect(x + 4, y + 4, image.width(), image.height(), QColor(40, 40, 44));
            p.drawImage(x, y, image);
            p.setPen(QColor(220, 220, 220));
            p.drawText(QRect(x - margin, y, margin - 8, 20), Qt::AlignRight,
                       QStringLiteral("n° %1").arg(number));
            y += image.height() + gap;
        }
    }

  private:
    static constexpr int gap = 24, margin = 60;
    std::vector<std::pair<int, QImage>> tickets_;
};

namespace {

int signalPipe[2] = {-1, -1};

void onSignal(int) {
    const char c = 's';
    [[maybe_unused]] const ssize_t n = ::write(signalPipe[1], &c, 1);
}

// The highest ticket number already in the folder.
int lastNumberIn(const QString& folder) {
    int last = 0;
    static const QRegularExpression name(QStringLiteral("^ticket-(\\d+)\\.png$"));
    for (const QString& file :
         QDir(folder).entryList({QStringLiteral("ticket-*.png")}, QDir::Files))
        if (const auto m = name.match(file); m.hasMatch())
            last = std::max(last, m.captured(1).toInt());
    return last;
}

}  // namespace

PrinterWindow::PrinterWindow(const WindowOptions& options)
    : options_(options), decoder_(options.paperMillimetres) {
    setWindowTitle(QStringLiteral("Imprimante ticket virtuelle — Com %1").arg(options.port));
    auto* central = new QWidget(this);
    auto* layout = new QVBoxLayout(central);
    status_ = new QLabel(central);
    status_->setObjectName(QStringLiteral("status"));
    status_->setWordWrap(true);
    layout->addWidget(status_);

    auto* row = new QHBoxLayout;
    auto* scroll = new QScrollArea(central);
    roll_ = new RollView;
    scroll->setWidget(roll_);
    scroll->setWidgetResizable(true);
    scroll->setObjectName(QStringLiteral("roll"));
    // Wide enough for a whole roll of 80 mm beside its number.
    scroll->setMinimumWidth(800);
    row->addWidget(scroll, 0);

    auto* side = new QVBoxLayout;
    auto* title = new QLabel(QStringLiteral("<b>Accents du dernier ticket</b>"), central);
    side->addWidget(title);
    advice_ = new QPlainTextEdit(central);
    advice_->setObjectName(QStringLiteral("advice"));
    advice_->setReadOnly(true);
    advice_->setPlaceholderText(QStringLiteral("Imprimez un ticket de test sur ce port."));
    QFont mono(QStringLiteral("Liberation Mono"));
    mono.setPixelSize(13);
    advice_->setFont(mono);
    side->addWidget(advice_, 1);
    auto* clear = new QPushButton(QStringLiteral("Vider le rouleau"), central);
    clear->setObjectName(QStringLiteral("clear"));
    connect(clear, &QPushButton::clicked, this, &PrinterWindow::clearRoll);
    side->addWidget(clear);
    row->addLayout(side, 1);
    layout->addLayout(row, 1);
    setCentralWidget(central);
    resize(1280, 800);

    refreshTimer_.setSingleShot(true);
    refreshTimer_.setInterval(40);
    connect(&refreshTimer_, &QTimer::timeout, this, &PrinterWindow::refresh);
    // A ticket without a cut is written once the line has been quiet a while.
    idleTimer_.setSingleShot(true);
    idleTimer_.setInterval(700);
    connect(&idleTimer_, &QTimer::timeout, this, [this] {
        const auto& sheets = decoder_.document().sheets;
        if (!sheets.empty() && !sheets.back().finished) writeSheet(sheets.size() - 1);
    });
    connect(&port_, &VirtualPort::received, this, &PrinterWindow::receive);
}

PrinterWindow::~PrinterWindow() = default;

bool PrinterWindow::start(QString& error) {
    if (!QDir().mkpath(options_.outDir)) {
        error = QStringLiteral("impossible de créer le dossier %1").arg(options_.outDir);
        return false;
    }
    numberOffset_ = lastNumberIn(options_.outDir);
    if (!port_.open(options_.port, options_.extraLink, error)) return false;
    if (!port_.warning().isEmpty())
        std::fprintf(stderr, "kalvo-vprinter : %s\n", qPrintable(port_.warning()));
    status_->setText(
        QStringLiteral("Com %1 : %2 → %3    Tickets : %4")
            .arg(options_.port)
            .arg(port_.linkPath(), port_.devicePath(), QDir(options_.outDir).absolutePath()));
    return true;
}

void PrinterWindow::receive(const QByteArray& bytes) {
    bytesReceived_ += bytes.size();
    decoder_.feed(bytes);
    if (!refreshTimer_.isActive()) refreshTimer_.start();
    idleTimer_.start();
}

void PrinterWindow::refresh() {
    const auto& sheets = decoder_.document().sheets;
    written_.resize(sheets.size(), false);
    std::vector<std::pair<int, QImage>> shown;
    for (size_t i = 0; i < sheets.size(); ++i) {
        if (sheets[i].finished && !written_[i]) writeSheet(i);
        if (i >= firstShown_) shown.emplace_back(numberOffset_ + int(i) + 1, picture(i));
    }
    roll_->setTickets(std::move(shown));
    // The advice is for the last ticket with accents (a cut leaves the
    // next ticket with a blank line only), else for the last one.
    for (auto it = sheets.rbegin(); it != sheets.rend(); ++it) {
        const AccentAdvice advice = adviseAccents(*it);
        if (advice.accented || it + 1 == sheets.rend()) {
            advice_->setPlainText(advice.text());
            break;
        }
    }
    // What the till asked without printing (status, real-time commands),
    // with the newest ticket.
    QStringList requests;
    for (const escpos::Request& r : decoder_.document().requests)
        requests << escpos::dumpRequest(r);
    if (!sheets.empty())
        for (const escpos::Request& r : sheets.back().requests) requests << escpos::dumpRequest(r);
    if (!requests.isEmpty())
        advice_->appendPlainText(QStringLiteral("\nSans impression :\n  ") +
                                 requests.join(QStringLiteral("\n  ")));
    // The newest paper comes out at the bottom.
    if (auto* area = findChild<QScrollArea*>(QStringLiteral("roll")))
        QTimer::singleShot(0, area, [area] {
            area->verticalScrollBar()->setValue(area->verticalScrollBar()->maximum());
        });
}

// A finished sheet no longer changes: its picture is drawn once.
QImage PrinterWindow::picture(size_t index) {
    const escpos::Sheet& sheet = decoder_.document().sheets[index];
    if (!sheet.finished) return escpos::renderSheet(sheet);
    pictures_.resize(std::max(pictures_.size(), index + 1));
    if (pictures_[index].isNull()) pictures_[index] = escpos::renderSheet(sheet);
    return pictures_[index];
}

void PrinterWindow::writeSheet(size_t index) {
    const auto& sheets = decoder_.document().sheets;
    if (index >= sheets.size()) return;
    written_.resize(sheets.size(), false);
    const escpos::Sheet& sheet = sheets[index];
    const int number = numberOffset_ + int(index) + 1;
    const QString base =
        QDir(options_.outDir)
            .filePath(QStringLiteral("ticket-%1").arg(number, 3, 10, QLatin1Char('0')));
    picture(index).save(base + QStringLiteral(".png"), "PNG");
    QFile text(base + QStringLiteral(".txt"));
    const AccentAdvice advice = adviseAccents(sheet);
    const QString advised = advice.accented ? QStringLiteral("\n") + advice.text() : QString();
    if (text.open(QIODevice::WriteOnly | QIODevice::Truncate))
        text.write((escpos::dumpSheet(sheet, number) + advised).toUtf8());
    written_[index] = sheet.finished;
}

void PrinterWindow::clearRoll() {
    firstShown_ = decoder_.document().sheets.size();
    const auto& sheets = decoder_.document().sheets;
    if (!sheets.empty() && !sheets.back().finished) --firstShown_;
    refresh();
}

void PrinterWindow::finish() {
    refreshTimer_.stop();
    idleTimer_.stop();
    port_.drain();
    decoder_.finish();
    const auto& sheets = decoder_.document().sheets;
    written_.resize(sheets.size(), false);
    for (size_t i = 0; i < sheets.size(); ++i)
        if (!written_[i]) writeSheet(i);
    port_.close();
}

int runWindow(const WindowOptions& options) {
    // SIGTERM, SIGINT and SIGHUP end the run cleanly: tickets written, link
    // and Wine's registry put back. They are caught before the port is made,
    // so that none comes between the two unheard.
    if (::pipe(signalPipe) == 0)
        for (const int sig : {SIGTERM, SIGINT, SIGHUP}) ::signal(sig, onSignal);
    QSocketNotifier stop(signalPipe[0], QSocketNotifier::Read);
    QObject::connect(&stop, &QSocketNotifier::activated, qApp, &QApplication::quit);
    PrinterWindow window(options);
    QString error;
    if (!window.start(error)) {
        std::fprintf(stderr, "kalvo-vprinter : %s\n", qPrintable(error));
        return 1;
    }
    std::printf("kalvo-vprinter : Com %d prêt (%s)\n", options.port,
                qPrintable(window.findChild<QLabel*>(QStringLiteral("status"))->text()));
    std::fflush(stdout);
    window.show();
    const int code = QApplication::exec();
    window.finish();
    // The picture of the window for the documentation, only when asked for.
    if (const QString folder = qEnvironmentVariable("KALVO_SCREENSHOTS"); !folder.isEmpty())
        window.grab().save(QDir(folder).filePath(QStringLiteral("vprinter.png")), "PNG");
    return code;
}
