#pragma once
// Every screen this build has, by the name the suite shows it by.
class ScreenRegistry;

void registerScreens(ScreenRegistry& registry);
