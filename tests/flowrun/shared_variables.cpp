#include "shared_variables.h"

#include <functional>
#include <map>

#include "shell/context.h"
#include "store/numeric.h"

namespace {

struct Binding {
    std::function<QString(const Context&)> get;
    std::function<void(Context&, const QString&)> set;
};

template <class Field>
Binding textField(Field field) {
    return {[field](const Context& c) { return c.*field; },
            [field](Context& c, const QString& v) { c.*field = v; }};
}

template <class Field>
Binding numberField(Field field) {
    return {[field](const Context& c) { return QString::number(c.*field); },
            [field](Context& c, const QString& v) {
                using T = std::remove_reference_t<decltype(c.*field)>;
                c.*field = T(numericValue(v));
            }};
}

// The theme's colours, couleur_theme(1) to couleur_theme(6).
void addColours(std::map<QString, Binding>& all) {
    for (size_t k = 1; k <= 6; ++k)
        all[QStringLiteral("couleur_theme(%1)").arg(k)] = {
            [k](const Context& c) { return QString::number(c.couleur_theme[k], 'f', 0); },
            [k](Context& c, const QString& v) { c.couleur_theme[k] = numericValue(v); }};
}

const std::map<QString, Binding>& bindings() {
    static const std::map<QString, Binding> all = [] {
        std::map<QString, Binding> named = {
            {"chaine_travail", textField(&Context::chaine_travail)},
            {"msg_dialogue", textField(&Context::msg_dialogue)},
            {"reglages_serie", textField(&Context::reglages_serie)},
            {"fiche_article", textField(&Context::fiche_article)},
            {"retour_dialogue", numberField(&Context::retour_dialogue)},
            {"fichier_perif", numberField(&Context::fichier_perif)},
            {"port_serie", numberField(&Context::port_serie)},
            {"mode_accent", numberField(&Context::mode_accent)},
            {"mode_accent_cuisine", numberField(&Context::mode_accent_cuisine)},
            {"famille_usb", numberField(&Context::famille_usb)},
            {"format_facture", numberField(&Context::format_facture)},
            {"prix_unitaire", numberField(&Context::prix_unitaire)},
        };
        addColours(named);
        return named;
    }();
    return all;
}

}  // namespace

bool setSharedVariable(Context& ctx, const QString& name, const QString& value) {
    const auto it = bindings().find(name);
    if (it == bindings().end()) return false;
    it->second.set(ctx, value);
    return true;
}

std::optional<QString> sharedVariable(const Context& ctx, const QString& name) {
    const auto it = bindings().find(name);
    if (it == bindings().end()) return std::nullopt;
    return it->second.get(ctx);
}
