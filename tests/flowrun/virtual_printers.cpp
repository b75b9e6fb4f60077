#include "virtual_printers.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QImageReader>
#include <stdexcept>

VirtualPrinters::VirtualPrinters(const std::vector<int>& ports) {
    const QString program =
        QCoreApplication::applicationDirPath() + QStringLiteral("/kalvo-vprinter");
    for (const int port : ports) {
        Printer p{port, std::make_unique<QProcess>(), std::make_unique<QTemporaryDir>()};
        p.process->setProcessChannelMode(QProcess::SeparateChannels);
        p.process->start(program, {QStringLiteral("--port"), QString::number(port),
                                   QStringLiteral("--out"), p.out->path()});
        // It says so on its output once the port is linked.
        if (!p.process->waitForStarted(5000) || !p.process->waitForReadyRead(10000) ||
            !p.process->readLine().contains("prêt"))
            throw std::runtime_error("the virtual printer did not start on port " +
                                     std::to_string(port));
        printers_.push_back(std::move(p));
    }
}

QStringList VirtualPrinters::report() {
    QStringList lines;
    for (Printer& p : printers_) {
        p.process->terminate();
        p.process->waitForFinished(10000);
        lines << QStringLiteral("-- virtual printer COM%1").arg(p.port);
        const QDir out(p.out->path());
        for (const QString& name :
             out.entryList({QStringLiteral("ticket-*.txt")}, QDir::Files, QDir::Name)) {
            const QString picture = name.chopped(4) + QStringLiteral(".png");
            const QSize size = QImageReader(out.filePath(picture)).size();
            lines << QStringLiteral("%1 %2x%3").arg(picture).arg(size.width()).arg(size.height());
            QFile text(out.filePath(name));
            if (text.open(QIODevice::ReadOnly))
                lines << QString::fromUtf8(text.readAll()).trimmed().split(u'\n');
        }
    }
    return lines;
}
