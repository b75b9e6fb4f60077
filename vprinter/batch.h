#pragma once
// The batch form: a file of bytes in, the picture of each sheet and the text
// of the document out, for tests and bug reports.
#include <QString>

struct BatchOptions {
    QString input;     // a file of the bytes as they came on the wire
    QString pngBase;   // ticket.png gives ticket.png, or ticket-1.png, ticket-2.png...
    QString dumpPath;  // "-" for standard output
    int paperMillimetres = 80;
};

// 0 when done, else a message has been printed and this is the exit code.
int runBatch(const BatchOptions& options);
