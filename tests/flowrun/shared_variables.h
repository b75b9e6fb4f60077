#pragma once
// The context's shared variables by their names, for the scenario's `set`
// and `read`: a caller of the day fills them before it shows a screen, and
// reads what the screen left in them.
#include <QString>
#include <optional>

class Context;

// Sets the variable from the scenario's text; false for a name that is not a
// shared variable. Numbers are read as the tool reads them.
bool setSharedVariable(Context& ctx, const QString& name, const QString& value);
// The variable as text; nothing for a name that is not a shared variable.
std::optional<QString> sharedVariable(const Context& ctx, const QString& name);
