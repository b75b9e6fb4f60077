#include "data_dir.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

namespace {

// The first line of a setting file, blanks trimmed; empty when unreadable.
QString readSetting(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return {};
    return QString::fromUtf8(file.readLine()).trimmed();
}

void search(const QDir& folder, int depthLeft, QStringList& found) {
    if (holdsData(folder.path())) found << folder.canonicalPath();
    if (depthLeft == 0) return;
    const auto subfolders =
        folder.entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::Hidden | QDir::NoSymLinks);
    for (const QFileInfo& sub : subfolders) {
        if (sub.isSymLink()) continue;
        search(QDir(sub.filePath()), depthLeft - 1, found);
    }
}

QStringList winePrefixes(const LauncherPlaces& places) {
    QStringList prefixes;
    if (!places.winePrefix.isEmpty()) prefixes << places.winePrefix;
    const QDir home(places.home);
    for (const QString& name :
         home.entryList({QStringLiteral(".wine*")}, QDir::Dirs | QDir::Hidden, QDir::Name))
        prefixes << home.filePath(name);
    return prefixes;
}

}  // namespace

LauncherPlaces systemPlaces() {
    return {QStringLiteral("/etc/kalvo-periph/data-dir"),
            QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
                QStringLiteral("/kalvo-periph/data-dir"),
            QDir::homePath(), qEnvironmentVariable("WINEPREFIX")};
}

bool holdsData(const QString& folder) {
    return !folder.isEmpty() && QFileInfo(QDir(folder).filePath(dataFileName)).isFile();
}

QString configuredDataDir(const LauncherPlaces& places) {
    for (const QString& setting : {places.tillSetting, places.userSetting}) {
        const QString folder = readSetting(setting);
        if (holdsData(folder)) return folder;
    }
    return {};
}

QStringList findDataDirs(const LauncherPlaces& places, int maxDepth) {
    QStringList found;
    for (const QString& prefix : winePrefixes(places)) {
        const QDir driveC(QDir(prefix).filePath(QStringLiteral("drive_c")));
        if (driveC.exists()) search(driveC, maxDepth, found);
    }
    found.removeDuplicates();
    return found;
}

bool rememberDataDir(const LauncherPlaces& places, const QString& folder) {
    if (!QDir().mkpath(QFileInfo(places.userSetting).path())) return false;
    QSaveFile file(places.userSetting);
    if (!file.open(QIODevice::WriteOnly)) return false;
    file.write(QDir(folder).absolutePath().toUtf8() + '\n');
    return file.commit();
}
