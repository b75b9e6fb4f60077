#include "shell/screen_registry.h"

#include "shell/modal.h"
#include "shell/screen.h"

void ScreenRegistry::add(const QString& name, Factory factory) {
    factories_[name] = std::move(factory);
}

bool ScreenRegistry::contains(const QString& name) const {
    return factories_.count(name) != 0;
}

QStringList ScreenRegistry::names() const {
    QStringList all;
    for (const auto& [name, factory] : factories_) all << name;
    return all;
}

std::unique_ptr<Screen> ScreenRegistry::create(const QString& name, Context& ctx) const {
    const auto it = factories_.find(name);
    if (it == factories_.end()) return nullptr;
    return std::unique_ptr<Screen>(it->second(ctx));
}

bool ScreenRegistry::show(const QString& name, Context& ctx, bool modal) const {
    std::unique_ptr<Screen> screen = create(name, ctx);
    if (!screen) return false;
    screen->load();
    if (modal) {
        runModal(*screen);
        return true;
    }
    screen->setAttribute(Qt::WA_DeleteOnClose);
    screen.release()->show();
    return true;
}
