// Writes pictures of the prompt dialog in its kinds, of the on-screen
// keyboard and of the info bubble: shell_screenshots <folder>.
#include <QApplication>
#include <QDir>
#include <QTest>

#include "shell/button_bar.h"
#include "shell/fonts.h"
#include "shell/image_banks.h"
#include "shell/info_bubble.h"
#include "shell/onscreen_keyboard.h"
#include "shell/prompt_dialog.h"
#include "support/test_run.h"

namespace {
bool save(QWidget& w, const QString& folder, const QString& name) {
    w.show();
    (void)QTest::qWaitForWindowExposed(&w);
    QCoreApplication::processEvents();
    const QString file = QDir(folder).filePath(name + QStringLiteral(".png"));
    const bool ok = w.grab().save(file);
    qInfo("%s %s", ok ? "wrote" : "could not write", qPrintable(file));
    return ok;
}

bool dialog(TestRun& t, const QString& folder, const QString& name, const QString& msg, int kind) {
    form97 d(t.ctx);
    t.ctx.msg_dialogue = msg;
    t.ctx.retour_dialogue = kind;
    d.load();
    return save(d, folder, name);
}
}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    installFonts();
    // Taken whole before the run moves to its scratch data directory.
    const QString folder =
        QDir(argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral(".")).absolutePath();
    QDir().mkpath(folder);
    TestRun t;
    charge_theme(t.ctx);
    bool ok = true;
    ok &= dialog(t, folder, QStringLiteral("form97_information"),
                 QStringLiteral("Votre imprimante est configurée !"), 0);
    ok &= dialog(t, folder, QStringLiteral("form97_oui_non"),
                 QStringLiteral("ON|Le texte 'Le test d'impression à réussi..' apparait-il sur "
                                "votre ticket avec les accents ?"),
                 4);
    ok &= dialog(t, folder, QStringLiteral("form97_saisie"),
                 QStringLiteral("Nombre de lignes à la fin du ticket|5"), 129);
    ok &= dialog(t, folder, QStringLiteral("form97_choix"),
                 QStringLiteral("Que voulez-vous essayer ?#MKM#099:Ticket1|106:Tiroir2|"
                                "146:Réglages3|"),
                 -4);
    ok &= dialog(t, folder, QStringLiteral("form97_case"),
                 QStringLiteral("Imprimer une facture à chaque vente ?#MKM#1 Ne plus poser la "
                                "question"),
                 4);
    ok &= dialog(t, folder, QStringLiteral("form97_recherche"),
                 QStringLiteral("*}Nom de l'imprimante|Caisse 1"), 129);

    t.ctx.msg_dialogue = QStringLiteral("Nombre de lignes à la fin du ticket|5");
    OnScreenKeyboard keyboard(t.ctx);
    keyboard.load();
    ok &= save(keyboard, folder, QStringLiteral("clavier"));

    bulle(t.ctx, QString(), QStringLiteral("2"));
    ok &= save(*t.ctx.icc().bubble, folder, QStringLiteral("infoobulle"));
    return ok ? 0 : 1;
}
