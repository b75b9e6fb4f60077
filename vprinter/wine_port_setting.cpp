#include "wine_port_setting.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QSaveFile>
#include <QStandardPaths>
#include <optional>

// The registry of a prefix is the text file system.reg while no wineserver
// runs for it; a running wineserver holds the registry in memory and writes
// the whole file again when it ends, so an edit of the file then would be
// lost. Hence: with no server, the file is edited in place (a few
// milliseconds, and Wine is not started: a Wine start costs a second or more
// and remakes every comN link); with a server, the change goes through it
// with `wine reg`. A server that starts between the check and the write
// would still hold the old value, so the check is made again after the write.

namespace {

const QByteArray registryHeader =
    QByteArrayLiteral("WINE REGISTRY Version 2\n;; All keys relative to REGISTRY\\\\Machine\n\n");
QByteArray architectureLine() {
    const bool has64 = !QStandardPaths::findExecutable(QStringLiteral("wine64")).isEmpty() ||
                       QFileInfo::exists(QStringLiteral("/usr/lib/wine/wine64"));
    if (!has64 || qEnvironmentVariable("WINEARCH") == QLatin1String("win32")) return {};
    return QByteArrayLiteral("#arch=win64\n\n");
}

const QByteArray portsKey = QByteArrayLiteral("[Software\\\\Wine\\\\Ports]");
const QString portsKeyName = QStringLiteral("HKLM\\Software\\Wine\\Ports");

QByteArray escaped(const QString& text) {
    QByteArray out;
    for (const char c : text.toUtf8()) {
        if (c == '\\' || c == '"') out += '\\';
        out += c;
    }
    return out;
}

// A value's line as the registry file has it: "NAME"="string" or
// "NAME"=type:data. The string's escapes are undone for \\ and \" only,
// which is all that a device path has.
QString valueText(const QByteArray& line, qsizetype nameEnd) {
    const QByteArray data = line.mid(nameEnd).trimmed();
    if (!data.startsWith('"')) return QString::fromUtf8(data);
    QByteArray out;
    for (qsizetype i = 1; i < data.size() && data[i] != '"'; ++i) {
        if (data[i] == '\\' && i + 1 < data.size()) ++i;
        out += data[i];
    }
    return QString::fromUtf8(out);
}

bool sameName(const QByteArray& line, const QByteArray& quotedName) {
    return line.size() > quotedName.size() && line[quotedName.size()] == '=' &&
           line.left(quotedName.size()).compare(quotedName, Qt::CaseInsensitive) == 0;
}

}  // namespace

WinePortSetting::WinePortSetting(const QString& prefix, int port)
    : prefix_(prefix), name_(QStringLiteral("COM%1").arg(port)) {}

bool WinePortSetting::serverRuns(const QString& prefix) {
    struct stat st {};
    if (::stat(QFile::encodeName(prefix).constData(), &st) != 0) return false;
    // A wineserver keeps a lock on the file "lock" of its folder for as long
    // as it runs; the folder is named after the prefix's device and inode.
    // Debian's Wine puts that folder in a private folder of the temporary
    // directory, whose name it writes in the prefix's file "wineserver";
    // Wine's own builds use /tmp/.wine-UID.
    const QString server = QStringLiteral("/server-%1-%2")
                               .arg(qulonglong(st.st_dev), 0, 16)
                               .arg(qulonglong(st.st_ino), 0, 16);
    QStringList folders;
    QFile named(prefix + QStringLiteral("/wineserver"));
    if (named.open(QIODevice::ReadOnly)) {
        const QString name = QString::fromLocal8Bit(named.readAll().trimmed());
        const QString tmp = qEnvironmentVariable("TMPDIR");
        if (!tmp.isEmpty()) folders << tmp + u'/' + name;
        folders << QStringLiteral("/tmp/") + name;
    }
    folders << QStringLiteral("/tmp/.wine-%1").arg(::getuid());
    for (const QString& folder : folders) {
        const int fd =
            ::open(QFile::encodeName(folder + server + QStringLiteral("/lock")).constData(),
                   O_RDONLY | O_CLOEXEC);
        if (fd < 0) continue;
        struct flock lock {};
        lock.l_type = F_WRLCK;
        lock.l_whence = SEEK_SET;
        const bool held = ::fcntl(fd, F_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
        ::close(fd);
        if (held) return true;
    }
    return false;
}

bool WinePortSetting::makePrefixIfMissing(QString& error) {
    if (QFileInfo::exists(prefix_)) return true;
    // Wine makes the drive links only when it makes the dosdevices folder
    // itself: in a prefix folder made without them it cannot start. The
    // registry file says which Wine the prefix is for, as Wine's does: a
    // 64-bit one where there is one (it runs 32-bit programs too) unless
    // WINEARCH asks for win32; a file that says nothing is taken for 32-bit.
    const QDir prefix(prefix_);
    QFile reg(prefix.filePath(QStringLiteral("system.reg")));
    if (!QDir().mkpath(prefix.filePath(QStringLiteral("dosdevices"))) ||
        !prefix.mkpath(QStringLiteral("drive_c")) ||
        !QFile::link(QStringLiteral("../drive_c"),
                     prefix.filePath(QStringLiteral("dosdevices/c:"))) ||
        !QFile::link(QStringLiteral("/"), prefix.filePath(QStringLiteral("dosdevices/z:"))) ||
        !reg.open(QIODevice::WriteOnly | QIODevice::NewOnly) ||
        reg.write(registryHeader + architectureLine()) < 0) {
        error = QStringLiteral("impossible de créer le préfixe Wine %1").arg(prefix_);
        return false;
    }
    madePrefix_ = true;
    return true;
}

bool WinePortSetting::set(const QString& device, QString& warning) {
    // A prefix folder with no registry file, made by some other program (the
    // tests' private prefixes): the link is all there is, and Wine is not
    // started for it.
    if (!QFile::exists(prefix_ + QStringLiteral("/system.reg"))) return true;
    if (serverRuns(prefix_) && !queryThroughWine(previous_, warning)) return false;
    const Value wanted{true, device, {}};
    if (!apply(wanted, QString(), warning)) return false;
    device_ = device;
    return true;
}

bool WinePortSetting::restore(QString& warning) {
    bool done = true;
    if (!device_.isEmpty()) {
        done = apply(previous_, device_, warning);
        device_.clear();
    }
    // The prefix made here goes if Wine has not started in it (Wine stamps a
    // prefix that it has set up).
    const QDir prefix(prefix_);
    if (madePrefix_ && !prefix.exists(QStringLiteral(".update-timestamp"))) {
        for (const char* name : {"system.reg", "dosdevices/c:", "dosdevices/z:"})
            QFile::remove(prefix.filePath(QLatin1String(name)));
        for (const char* name : {"drive_c", "dosdevices"}) prefix.rmdir(QLatin1String(name));
        QDir().rmdir(prefix_);
    }
    madePrefix_ = false;
    return done;
}

// Sets the value to wanted (absent: deleted), only where it equals expected
// when expected is given, and keeps what stood there in previous_ when it is
// the first change.
bool WinePortSetting::apply(const Value& wanted, const QString& expected, QString& warning) {
    if (serverRuns(prefix_)) return applyThroughWine(wanted, expected, warning);
    if (!applyToFile(wanted, expected, warning)) return false;
    if (serverRuns(prefix_)) return applyThroughWine(wanted, expected, warning);
    return true;
}

bool WinePortSetting::applyToFile(const Value& wanted, const QString& expected, QString& warning) {
    const QString path = prefix_ + QStringLiteral("/system.reg");
    QFile in(path);
    if (!in.open(QIODevice::ReadOnly)) {
        warning = QStringLiteral("impossible de lire %1").arg(path);
        return false;
    }
    QList<QByteArray> lines = in.readAll().split('\n');
    in.close();
    const QByteArray quotedName = '"' + name_.toLatin1() + '"';
    qsizetype key = -1, end = lines.size(), found = -1;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QByteArray& line = lines[i];
        if (key < 0) {
            if (line.left(portsKey.size()).compare(portsKey, Qt::CaseInsensitive) == 0) key = i;
        } else if (line.startsWith('[')) {
            end = i;
            break;
        } else if (found < 0 && sameName(line, quotedName)) {
            found = i;
        }
    }
    Value current;
    if (found >= 0) current = {true, valueText(lines[found], quotedName.size() + 1), lines[found]};
    if (!expected.isNull() && (!current.present || current.text != expected))
        return true;  // someone else's value now: left as it is
    if (expected.isNull()) previous_ = current;

    QByteArray line = wanted.line;
    if (wanted.present && line.isEmpty()) line = quotedName + "=\"" + escaped(wanted.text) + '"';
    if (found >= 0) {
        if (wanted.present)
            lines[found] = line;
        else
            lines.removeAt(found);
    } else if (wanted.present && key >= 0) {
        // Values go after the key's comment lines, before the blank line
        // that ends it.
        qsizetype at = end;
        while (at > key + 1 && lines[at - 1].trimmed().isEmpty()) --at;
        lines.insert(at, line);
    } else if (wanted.present) {
        while (!lines.isEmpty() && lines.last().isEmpty()) lines.removeLast();
        const QDateTime now = QDateTime::currentDateTimeUtc();
        // #time is a Windows file time: 100 ns steps since 1601.
        const qulonglong fileTime = qulonglong(now.toMSecsSinceEpoch() + 11644473600000LL) * 10000;
        lines << QByteArray() << portsKey + ' ' + QByteArray::number(now.toSecsSinceEpoch())
              << "#time=" + QByteArray::number(fileTime, 16) << line << QByteArray()
              << QByteArray();
    }
    QSaveFile out(path);
    if (!out.open(QIODevice::WriteOnly) || out.write(lines.join('\n')) < 0 || !out.commit()) {
        warning = QStringLiteral("impossible d'écrire %1").arg(path);
        return false;
    }
    return true;
}

namespace {

// Runs `wine reg ...` for the prefix: its exit code (reg says 1 for a value
// that is not there), or nothing with the reason when it could not run.
std::optional<int> runReg(const QStringList& arguments, QByteArray& output, QString& warning) {
    QString wine = QStandardPaths::findExecutable(QStringLiteral("wine"));
    if (wine.isEmpty()) wine = QStandardPaths::findExecutable(QStringLiteral("wine64"));
    if (wine.isEmpty()) {
        warning = QStringLiteral("Wine tourne mais la commande wine est introuvable");
        return std::nullopt;
    }
    QProcess reg;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("WINEDEBUG"), QStringLiteral("-all"));
    reg.setProcessEnvironment(environment);
    reg.start(wine, QStringList{QStringLiteral("reg")} + arguments);
    if (!reg.waitForFinished(60000) || reg.exitStatus() != QProcess::NormalExit) {
        reg.kill();
        reg.waitForFinished();
        warning = QStringLiteral("wine reg %1 ne répond pas").arg(arguments.value(0));
        return std::nullopt;
    }
    output = reg.readAllStandardOutput();
    return reg.exitCode();
}

bool succeeded(const QStringList& arguments, QString& warning) {
    QByteArray output;
    const std::optional<int> code = runReg(arguments, output, warning);
    if (code && *code != 0)
        warning =
            QStringLiteral("wine reg %1 %2 : échec").arg(arguments.value(0), arguments.value(1));
    return code == 0;
}

}  // namespace

bool WinePortSetting::queryThroughWine(Value& value, QString& warning) const {
    QByteArray output;
    value = {};
    const std::optional<int> code = runReg(
        {QStringLiteral("query"), portsKeyName, QStringLiteral("/v"), name_}, output, warning);
    if (!code) return false;
    const QRegularExpression row(
        QStringLiteral("^\\s*%1\\s+REG_\\w+\\s+(.*)$").arg(name_),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::MultilineOption);
    if (const auto m = row.match(QString::fromUtf8(output)); *code == 0 && m.hasMatch())
        value = {true, m.captured(1).trimmed(), {}};
    return true;
}

bool WinePortSetting::applyThroughWine(const Value& wanted, const QString& expected,
                                       QString& warning) {
    if (!expected.isNull()) {
        Value current;
        if (!queryThroughWine(current, warning)) return false;
        if (!current.present || current.text != expected) return true;
    }
    if (wanted.present)
        return succeeded({QStringLiteral("add"), portsKeyName, QStringLiteral("/v"), name_,
                          QStringLiteral("/d"), wanted.text, QStringLiteral("/f")},
                         warning);
    return succeeded(
        {QStringLiteral("delete"), portsKeyName, QStringLiteral("/v"), name_, QStringLiteral("/f")},
        warning);
}
