#include "app/screens.h"

#include "drawer/tirrro.h"
#include "expert/form1.h"
#include "guided/form2.h"
#include "guided/selimp1.h"
#include "guided/selimp4.h"
#include "kitchen/nox_sei2.h"
#include "labels/bienvenu015.h"
#include "labels/etiqqq.h"
#include "scale/saisipoids.h"
#include "serial/param_serie.h"
#include "serial/param_seriel.h"
#include "shell/screen_registry.h"
#include "startup/menuimp.h"

namespace {
template <class S>
void add(ScreenRegistry& registry, const char* name) {
    registry.add(QString::fromLatin1(name), [](Context& ctx) -> Screen* { return new S(ctx); });
}
}  // namespace

void registerScreens(ScreenRegistry& registry) {
    // Start-up and main menu.
    add<menuimp>(registry, "menuimp");

    // Expert ticket printer and kitchen printer screens.
    add<Form1>(registry, "Form1");
    add<nox_sei2>(registry, "nox_sei2");

    // The standard installation and the ticket on a system printer.
    add<selimp4>(registry, "selimp4");
    add<Form2>(registry, "Form2");

    // The guided installation's choice of the printer family.
    add<selimp1>(registry, "selimp1");

    // The label printer.
    add<etiqqq>(registry, "etiqqq");

    // Invoice format.
    add<bienvenu015>(registry, "bienvenu015");

    // Weight and price entry, for a caller that shows it by name.
    add<saisipoids>(registry, "saisipoids");

    // The port scan, the port notebook and the independent cash drawer.
    add<Param_serie>(registry, "Param_serie");
    add<Param_seriel>(registry, "Param_seriel");
    add<tirrro>(registry, "tirrro");

    // A screen that is not listed here does not exist in this build:
    // showScreen answers false for it.
}
