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

    // The menu's load is the whole start-up; it may end the program itself.
    QApplication::setQuitOnLastWindowClosed(false);
    ui.showScreen(QStringLiteral("menuimp"), false);
    // From now on, the user closing the last window ends the program as "Fin"
    // does: files closed, process ended.
    QObject::connect(&app, &QGuiApplication::lastWindowClosed, &app, [&ui] { ui.endProgram(); });
    return QApplication::exec();
}
