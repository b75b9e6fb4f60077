// kalvo-periph-launcher: what the desktop's menu entry runs. It finds the
// sales program's data directory (the till's setting, the user's, or the
// user's answer once), makes it the current directory and replaces itself
// with the tool, which takes the current directory as its data directory.
// The same process goes on as the tool, so whoever waits for it waits for
// the tool.
#include <unistd.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cstdio>

#include "chooser.h"
#include "data_dir.h"

namespace {

// The tool beside the launcher. The tests put a stand-in in its place, and
// their own till setting, through these two variables.
QString toolPath() {
    const QString standIn = qEnvironmentVariable("KALVO_LAUNCHER_TEST_TOOL");
    if (!standIn.isEmpty()) return standIn;
    return QFileInfo(QStringLiteral("/proc/self/exe")).canonicalPath() +
           QStringLiteral("/kalvo-periph");
}

LauncherPlaces places() {
    LauncherPlaces p = systemPlaces();
    const QString till = qEnvironmentVariable("KALVO_LAUNCHER_TEST_TILL_SETTING");
    if (!till.isEmpty()) p.tillSetting = till;
    return p;
}

// Asks once; the answer is remembered for the user. Empty when cancelled.
QString askOnce(int argc, char** argv, const LauncherPlaces& where) {
    QApplication app(argc, argv);
    DataDirChooser chooser(findDataDirs(where));
    if (chooser.exec() != QDialog::Accepted) return {};
    if (!rememberDataDir(where, chooser.chosen()))
        std::fprintf(stderr, "kalvo-periph-launcher: cannot write %s\n",
                     qPrintable(where.userSetting));
    return chooser.chosen();
}

}  // namespace

int main(int argc, char** argv) {
    const LauncherPlaces where = places();
    QString folder = configuredDataDir(where);
    if (folder.isEmpty()) folder = askOnce(argc, argv, where);
    if (folder.isEmpty()) return 1;

    const QByteArray tool = QFile::encodeName(toolPath());
    if (::chdir(QFile::encodeName(folder).constData()) != 0) {
        std::perror(qPrintable(folder));
        return 1;
    }
    char* const toolArgv[] = {const_cast<char*>(tool.constData()), nullptr};
    ::execv(tool.constData(), toolArgv);
    std::perror(tool.constData());
    return 127;
}
