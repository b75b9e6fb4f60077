#include <QProcess>

#include "app/app_platform.h"

// The browser named by the screen, with the page as its one argument, runs
// beside the tool; nothing waits for it.
bool AppPlatform::openBrowser(const QString& browserPath, const QString& page) {
    return QProcess::startDetached(browserPath, {page});
}
