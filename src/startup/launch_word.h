#pragma once
// The launch mailbox (record 195 of WFICH142.WDO): the one task the sales
// program can hand the tool before starting it.
#include <QByteArrayView>
#include <QString>

enum class LaunchWord { None, Drawer, Labels, Scale };

// The word in the record, compared after trimming blanks on both sides,
// exactly and with case; any other content is no word.
LaunchWord launchWordOf(QByteArrayView record);

// The screen a word opens modally before the end; empty for a word that only
// consumes itself.
QString screenOf(LaunchWord word);
