#include "app/screens.h"

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

    // A screen that is not listed here does not exist in this build:
    // showScreen answers false for it.
}
