#pragma once
// What the printer screens' tests run on: a data directory of their own, real
// serial ports (pseudo-terminals behind a private Wine dosdevices folder), USB
// families that note every write, a fixed clock, a browser that is only noted,
// and a user who answers the prompt dialog from a script. The end of the
// program closes every file and throws ProgramEnded, so a test that calls an
// ending action directly sees the end and nothing after it runs.
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <deque>
#include <map>
#include <memory>

#include "flowrun/pty_capture.h"
#include "print/job.h"
#include "print/qt_mscomm.h"
#include "print/usb_family.h"
#include "shell/context.h"
#include "store/codec.h"
#include "store/records.h"

struct ProgramEnded {};
struct ProgramFailed {
    QString what;
};

class NotingFamily : public UsbFamily {
  public:
    bool reachable = false;
    QList<QByteArray> writes;
    qint16 open() override { return reachable ? 1 : 0; }
    qint32 write(const QByteArray& bytes) override {
        writes << bytes;
        return qint32(bytes.size());
    }
    void close() override {}
};

class NotingUsb : public UsbLibraries {
  public:
    NotingFamily t1, t3;
    UsbFamily& family(qint16 famille_usb) override { return famille_usb == 0 ? t1 : t3; }
};

class TestPlatform : public Platform {
  public:
    // ptyPorts: the port numbers that lead to a pseudo-terminal; every other
    // number leads to a folder, which no port can open.
    explicit TestPlatform(std::initializer_list<int> ptyPorts) {
        const QString dosdevices = prefix_.filePath(QStringLiteral("dosdevices"));
        QDir().mkpath(dosdevices);
        for (int n = 1; n <= 12; ++n) {
            QString target = prefix_.path();
            if (std::find(ptyPorts.begin(), ptyPorts.end(), n) != ptyPorts.end()) {
                ptys[n] = std::make_unique<PtyCapture>();
                target = ptys[n]->slavePath();
            }
            QFile::link(target, dosdevices + QStringLiteral("/com%1").arg(n));
        }
        qputenv("WINEPREFIX", prefix_.path().toLocal8Bit());
    }
    std::unique_ptr<MSComm> newPort() override { return std::make_unique<QtMSComm>(); }
    UsbLibraries& usb() override { return usbFamilies; }
    QDateTime now() const override { return clock; }
    bool openBrowser(const QString& browserPath, const QString& page) override {
        browserCalls << browserPath + QLatin1Char(' ') + page;
        return false;
    }
    QByteArray received(int port) { return ptys.at(port)->received(); }

    QDateTime clock{QDate(2026, 11, 16), QTime(10, 20, 30)};
    NotingUsb usbFamilies;
    QStringList browserCalls;
    std::map<int, std::unique_ptr<PtyCapture>> ptys;

  private:
    QTemporaryDir prefix_;
};

struct Reply {
    int retour;
    QString text;
};

class TestInteraction : public Interaction {
  public:
    Context* ctx = nullptr;
    std::deque<Reply> replies;
    QStringList asked;  // "kind|message" of every dialog, in order
    QStringList messageBoxes, bubbles, screensShown;

    void showDialog() override {
        asked << QStringLiteral("%1|%2").arg(ctx->retour_dialogue).arg(ctx->msg_dialogue);
        const Reply r = replies.empty() ? Reply{2, QString()} : replies.front();
        if (!replies.empty()) replies.pop_front();
        ctx->retour_dialogue = r.retour;
        ctx->msg_dialogue = r.text;
    }
    void messageBox(const QString& text) override { messageBoxes << text; }
    void bulle(const QString& texte, const QString& mode) override {
        bubbles << mode + QLatin1Char(':') + texte;
    }
    bool showScreen(const QString& name, bool modal) override {
        screensShown << name + (modal ? QStringLiteral(" modal") : QString());
        return true;
    }
    void letEventsRun() override { QCoreApplication::processEvents(); }
    [[noreturn]] void endProgram() override {
        ctx->store.closeAll();
        throw ProgramEnded{};
    }
    [[noreturn]] void fatal(const QString& what) override { throw ProgramFailed{what}; }
};

// A run: a fresh data directory made current, the platform, the user and the
// context, the station's files open as the start-up leaves them.
class TestRun {
  public:
    explicit TestRun(std::initializer_list<int> ptyPorts = {}, bool networkTill = false)
        : previous_(QDir::currentPath()), platform(ptyPorts), ctx(platform, ui) {
        QDir::setCurrent(dir_.path());
        ui.ctx = &ctx;
        ctx.store.open(files::sales, QString::fromLatin1(files::salesName), files::recordLength);
        if (networkTill) {
            ctx.fichier_perif = files::networkTill;
            ctx.store.open(files::networkTill, QString::fromLatin1(files::networkTillName),
                           files::recordLength);
        }
    }
    ~TestRun() {
        ctx.store.closeAll();
        QDir::setCurrent(previous_);
    }
    void answer(std::initializer_list<Reply> r) { ui.replies.insert(ui.replies.end(), r); }

    // A record as it stands on disk, "" beyond the end of the file.
    static QByteArray onDisk(const QString& file, int number) {
        QFile f(file);
        if (!f.open(QIODevice::ReadOnly)) return {};
        f.seek(qint64(number - 1) * files::recordLength);
        return f.read(files::recordLength);
    }
    static QByteArray whole(const QString& file) {
        QFile f(file);
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }
    // Makes the sales program's file as a fresh one holds it: zero bytes.
    static void freshSalesFile(int records = 4000) {
        QFile f(QString::fromLatin1(files::salesName));
        if (f.open(QIODevice::WriteOnly)) f.write(QByteArray(records * files::recordLength, '\0'));
    }

  private:
    QTemporaryDir dir_;
    QString previous_;

  public:
    TestPlatform platform;
    TestInteraction ui;
    Context ctx;
};

inline QByteArray padded(QByteArrayView text) {
    QByteArray r(text.data(), text.size());
    return r.leftJustified(files::recordLength, ' ');
}

// Bytes as the golden files hold them: 16 bytes a line in hex.
inline QByteArray hexLines(const QByteArray& bytes) {
    QByteArray out;
    for (qsizetype i = 0; i < bytes.size(); i += 16) out += bytes.mid(i, 16).toHex(' ') + '\n';
    return out;
}

// A job as the golden files hold it: one write a line, its kind first
// (D direct, T translated, R raw, + when events run after it).
inline QByteArray describeJob(const Job& job) {
    QByteArray out;
    for (const Write& w : job.writes) {
        out += w.how == Write::How::Direct ? 'D' : w.how == Write::How::Translated ? 'T' : 'R';
        if (w.letEventsRunAfter) out += '+';
        out += ' ' + w.bytes.toHex(' ') + '\n';
    }
    if (job.failed) out += "failed\n";
    return out;
}

// Compares with tests/<folder>/golden/<name>. A missing golden fails; it is
// written only when KALVO_WRITE_GOLDEN is set, and the test still fails then.
inline QString goldenMismatch(const QString& folder, const QString& name,
                              const QByteArray& actual) {
    const QString path = qEnvironmentVariable("KALVO_SOURCE_DIR") +
                         QStringLiteral("/tests/%1/golden/%2").arg(folder, name);
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) {
        if (qEnvironmentVariableIsSet("KALVO_WRITE_GOLDEN")) {
            QFile out(path);
            if (out.open(QIODevice::WriteOnly)) out.write(actual);
            return QStringLiteral("golden file written, check it: ") + path;
        }
        return QStringLiteral("missing golden file ") + path;
    }
    const QByteArray expected = f.readAll();
    if (expected == actual) return {};
    return QStringLiteral("differs from %1:\n%2").arg(path, QString::fromLatin1(actual));
}
