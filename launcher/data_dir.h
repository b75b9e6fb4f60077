#pragma once
// Where the tool is to run: the sales program's data directory, the folder
// that holds w_cai020.wdo. It is set once for the till (a file under /etc),
// or remembered for the user (a file under ~/.config) after the user picked
// it; when neither names such a folder, the Wine prefixes of the user are
// searched for candidates.
#include <QString>
#include <QStringList>

// The file the sales program's folder always holds, and the tool opens.
inline constexpr char dataFileName[] = "w_cai020.wdo";

struct LauncherPlaces {
    QString tillSetting;  // /etc/kalvo-periph/data-dir
    QString userSetting;  // $XDG_CONFIG_HOME/kalvo-periph/data-dir
    QString home;         // where ~/.wine and ~/.wine*/ are looked for
    QString winePrefix;   // $WINEPREFIX, may be empty
};

// The real places, from the environment.
LauncherPlaces systemPlaces();

bool holdsData(const QString& folder);

// The first setting, the till's before the user's, that names a folder
// holding the data file; empty when none does.
QString configuredDataDir(const LauncherPlaces& places);

// Every folder under drive_c of the Wine prefixes ($WINEPREFIX, ~/.wine,
// ~/.wine*) that holds the data file, at most maxDepth folders down,
// symbolic links not followed (Wine links the user's own folders into
// drive_c): $WINEPREFIX's first, then by prefix and folder name, each once.
QStringList findDataDirs(const LauncherPlaces& places, int maxDepth = 8);

// Writes the user's setting; false when it cannot be written.
bool rememberDataDir(const LauncherPlaces& places, const QString& folder);
