#include "batch.h"

#include <QFile>
#include <QFileInfo>
#include <cstdio>

#include "escpos/decoder.h"
#include "escpos/dump.h"
#include "escpos/render.h"
#include "ticket_files.h"

int runBatch(const BatchOptions& options) {
    QFile in(options.input);
    if (!in.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "kalvo-vprinter : impossible de lire %s\n", qPrintable(options.input));
        return 1;
    }
    escpos::Decoder decoder(options.paperMillimetres);
    decoder.feed(in.readAll());
    decoder.finish();
    const escpos::Document& doc = decoder.document();
    if (!options.pngBase.isEmpty()) {
        const int count = int(doc.sheets.size());
        for (int i = 0; i < count; ++i) {
            const QString path =
                count == 1 ? options.pngBase : numberedPath(options.pngBase, i + 1);
            if (!escpos::renderSheet(doc.sheets[size_t(i)]).save(path, "PNG")) {
                std::fprintf(stderr, "kalvo-vprinter : impossible d'écrire %s\n", qPrintable(path));
                return 1;
            }
        }
    }
    if (!options.dumpPath.isEmpty()) {
        const QByteArray text = escpos::dump(doc).toUtf8();
        if (options.dumpPath == QLatin1String("-")) {
            std::fwrite(text.constData(), 1, size_t(text.size()), stdout);
        } else {
            QFile out(options.dumpPath);
            if (!out.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
                out.write(text) != text.size()) {
                std::fprintf(stderr, "kalvo-vprinter : impossible d'écrire %s\n",
                             qPrintable(options.dumpPath));
                return 1;
            }
        }
    }
    return 0;
}
