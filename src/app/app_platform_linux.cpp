#include <QDesktopServices>
#include <QUrl>

#include "app/app_platform.h"

// The till's browser path names a Windows program; here the page goes to the
// desktop's own browser (xdg-open), started beside the tool. Nothing waits for
// it, and a machine without a browser just gets nothing.
bool AppPlatform::openBrowser(const QString& /*browserPath*/, const QString& page) {
    return QDesktopServices::openUrl(QUrl::fromUserInput(page));
}
