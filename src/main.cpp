// kalvo-periph: the peripheral setup and test tool. It reads no arguments and
// no settings of its own: the current directory is the sales program's data
// directory, and every setting lives in the records found there.
#include <QApplication>

#include "app/app_interaction.h"
#include "app/app_platform.h"
#include "app/screens.h"
#include "shell/fonts.h"
#include "shell/screen_registry.h"

int main(int, char** argv) {
    // Only the program's own name goes to Qt: the command line is not read.
    int qtArgc = 1;
    QApplication app(qtArgc, argv);
    installFonts();

    ScreenRegistry registry;
    registerScreens(registry);
    AppPlatform platform;
    AppInteraction ui(registry);
    Context ctx(platform, ui);
    ui.attach(ctx);

    // The program ends only by its own ending (files closed, process ended):
    // a window that the user closes is that screen's cancel, and never ends
    // the run by itself. The menu's load is the whole start-up; it may end
    // the program itself.
    QApplication::setQuitOnLastWindowClosed(false);
    ui.showScreen(QStringLiteral("menuimp"), false);
    return QApplication::exec();
}
