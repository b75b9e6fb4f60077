#pragma once
// What a flow did to the data directory: every record that changed in every
// file, before and after, runs of equal changes folded into one line.
#include <QByteArray>
#include <QString>
#include <QStringList>
#include <map>

using DirSnapshot = std::map<QString, QByteArray>;  // file name -> whole content

DirSnapshot snapshotDir(const QString& path);

// "WFICH142.WDO 195: \"#TIRIND#    ...\" -> \"          ...\"", absent for
// a record beyond the end of the file before or after.
QStringList changedRecords(const DirSnapshot& before, const DirSnapshot& after);
