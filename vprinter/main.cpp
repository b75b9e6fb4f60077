// kalvo-vprinter: a ticket printer on screen. In window mode it makes a
// serial port of its own (a pseudo-terminal that Wine's dosdevices names
// comN, and that Wine's registry keeps there) and shows every ticket the till prints on it; in batch mode it turns
// a file of bytes into pictures and text.
#include <QApplication>
#include <QCommandLineParser>
#include <cstdio>

#include "batch.h"
#include "printer_window.h"

int main(int argc, char** argv) {
    // The batch form needs no display: it paints into images only.
    bool batch = false;
    for (int i = 1; i < argc; ++i)
        if (QByteArray(argv[i]) == "--batch" || QByteArray(argv[i]).startsWith("--batch="))
            batch = true;
    if (batch && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");

    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("kalvo-vprinter"));
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Imprimante ticket virtuelle : montre ce que les octets ESC/POS imprimeraient."));
    parser.addHelpOption();
    const QCommandLineOption portOption(
        QStringLiteral("port"),
        QStringLiteral("Port série N (Com N) à occuper, 1 à 12 (défaut 1)."), QStringLiteral("N"),
        QStringLiteral("1"));
    const QCommandLineOption outOption(
        QStringLiteral("out"),
        QStringLiteral("Dossier des tickets (PNG et texte) (défaut ./tickets)."),
        QStringLiteral("DOSSIER"), QStringLiteral("tickets"));
    const QCommandLineOption linkOption(
        QStringLiteral("link"),
        QStringLiteral("Lien de plus vers le port (par exemple /dev/usb/lp0)."),
        QStringLiteral("CHEMIN"));
    const QCommandLineOption paperOption(
        QStringLiteral("paper"), QStringLiteral("Largeur du rouleau en mm : 80 ou 58 (défaut 80)."),
        QStringLiteral("MM"), QStringLiteral("80"));
    const QCommandLineOption batchOption(
        QStringLiteral("batch"), QStringLiteral("Lit les octets d'un fichier au lieu d'un port."),
        QStringLiteral("FICHIER"));
    const QCommandLineOption pngOption(
        QStringLiteral("png"),
        QStringLiteral("Avec --batch : image(s) PNG à écrire (ticket.png, ticket-2.png...)."),
        QStringLiteral("FICHIER"));
    const QCommandLineOption dumpOption(
        QStringLiteral("dump"),
        QStringLiteral("Avec --batch : texte du document à écrire (- : la sortie)."),
        QStringLiteral("FICHIER"));
    parser.addOptions(
        {portOption, outOption, linkOption, paperOption, batchOption, pngOption, dumpOption});
    parser.process(app);

    const int paper = parser.value(paperOption).toInt();
    if (paper != 80 && paper != 58) {
        std::fprintf(stderr, "kalvo-vprinter : --paper vaut 80 ou 58\n");
        return 2;
    }
    if (parser.isSet(batchOption)) {
        if (!parser.isSet(pngOption) && !parser.isSet(dumpOption)) {
            std::fprintf(stderr, "kalvo-vprinter : --batch demande --png ou --dump\n");
            return 2;
        }
        return runBatch(
            {parser.value(batchOption), parser.value(pngOption), parser.value(dumpOption), paper});
    }
    bool ok = false;
    const int port = parser.value(portOption).toInt(&ok);
    if (!ok || port < 1 || port > 12) {
        std::fprintf(stderr, "kalvo-vprinter : --port vaut 1 à 12\n");
        return 2;
    }
    return runWindow({port, parser.value(outOption), parser.value(linkOption), paper});
}
