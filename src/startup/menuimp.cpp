#include "startup/menuimp.h"

#include <QFrame>
#include <QPixmap>

#include "shell/button_bar.h"
#include "shell/context.h"
#include "shell/placing.h"
#include "startup/launch_word.h"
#include "startup/menuimp_layout.h"
#include "startup/station.h"
#include "store/failure.h"
#include "store/param_table.h"
#include "store/record_files.h"
#include "store/switch_table.h"

namespace {
// The bar, in slot order.
const char* const barDefinitions[] = {"000:108:Fin", "001:000:Série", "002:049:Expert",
                                      "003:124:Valider"};

struct Picture {
    const char* control;
    const char* file;
};
const Picture pictures[] = {{"Image1", "kl_img_068.gif"},
                            {"Image3", "kl_img_069.gif"},
                            {"Image7", "kl_img_070.gif"},
                            {"Image6", "kl_img_008.gif"},
                            {"Image8", "kl_img_116.gif"}};
}  // namespace

menuimp::menuimp(Context& context) : Screen(context, QStringLiteral("menuimp")) {
    buildControls();
}

void menuimp::buildControls() {
    setWindowTitle(QStringLiteral("Paramétrage de votre imprimante principale"));
    resize(designWidth, designHeight);
    menuimp_layout::build(*this);
    // The three large choices: a click on one is a click on its bar slot.
    const std::pair<const char*, int> areas[] = {{"Label15", 1}, {"Label7", 2}, {"Label8", 3}};
    for (const auto& [name, slot] : areas) {
        auto* area = findChild<ClickLabel*>(QString::fromLatin1(name));
        connect(area, &ClickLabel::clicked, this, [this, index = slot] { clickSlot(index); });
    }
}

// The start-up sequence. Every statement runs in the mode where a failing
// one is skipped without a message: start-up never stops on a failure.
void menuimp::load() {
    skip([&] { pose_cadre(*this); });
    skip([&] { place_ecran(*this); });
    skip([&] { ouvre_fich142(ctx.store, ctx.today()); });
    skip([&] { ctx.switchs = lit_switch(ctx.store, ctx.platform.now()); });
    chooseStation();
    // File 20 is opened only now, so that a network till's first ouvre_perifx
    // above finds it closed and stops at its first copy.
    skip([&] { ctx.store.close(files::sales); });
    skip([&] {
        ctx.store.open(files::sales, QString::fromLatin1(files::salesName), files::recordLength);
    });
    skip([&] { charge_theme(ctx); });
    loadPictures();
    for (const char* definition : barDefinitions)
        skip([&] { cree_bouton(*this, QString::fromUtf8(definition)); });
    actOnLaunchWord();
    skip([&] { ctx.ui.showScreen(QStringLiteral("selimp4"), true); });
    skip([&] { ctx.ui.letEventsRun(); });
}

void menuimp::chooseStation() {
    QString numPoste;
    skip([&] { numPoste = lit_param(ctx.store, QStringLiteral("NUM_POSTE")); });
    const Station station = stationOf(numPoste);
    if (station.isNetworkTill()) skip([&] { ouvre_perifx(ctx.store, ctx.today()); });
    ctx.fichier_perif = station.fichier_perif();
    findChild<QLabel*>(QStringLiteral("Label14"))->setText(station.label());
}

void menuimp::loadPictures() {
    for (const Picture& p : pictures) {
        auto* image = findChild<QLabel*>(QString::fromLatin1(p.control));
        // A missing or unreadable file leaves the image empty.
        image->setPixmap(QPixmap(QString::fromLatin1(p.file)));
    }
}

// The word is cleared before its screen opens, so that a crash of the screen
// or a till switched off cannot start the task again at the next launch.
void menuimp::actOnLaunchWord() {
    QByteArray record;
    skip([&] { record = ctx.get(rec::launchMailbox); });
    const LaunchWord word = launchWordOf(record);
    if (word == LaunchWord::None) return;
    skip([&] { ctx.put(rec::launchMailbox, " "); });
    const QString screen = screenOf(word);
    if (!screen.isEmpty()) skip([&] { ctx.ui.showScreen(screen, true); });
    ctx.ui.endProgram();
}

// A menu entry whose screen this build lacks ends the program, as "Fin" does.
void menuimp::showOrEnd(const QString& screen, bool modal) {
    if (!ctx.ui.showScreen(screen, modal)) ctx.ui.endProgram();
}

void menuimp::bt_prog_Click(int index) {
    switch (index) {
        case 0:
            ctx.ui.endProgram();
            break;
        case 1:
            showOrEnd(QStringLiteral("Param_seriel"), true);
            break;
        case 2:
            showOrEnd(QStringLiteral("Form1"), false);
            // Form1 is now in charge: the menu unloads, the program goes on.
            setAttribute(Qt::WA_DeleteOnClose);
            close();
            break;
        case 3:
            showOrEnd(QStringLiteral("selimp1"), true);
            break;
        default:
            break;
    }
}
