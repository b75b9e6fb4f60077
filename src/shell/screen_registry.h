#pragma once
// The screens of a build by name, so that screens show one another without
// including each other's headers.
#include <QString>
#include <QStringList>
#include <functional>
#include <map>
#include <memory>

class Context;
class Screen;

class ScreenRegistry {
  public:
    using Factory = std::function<Screen*(Context&)>;

    void add(const QString& name, Factory factory);
    bool contains(const QString& name) const;
    QStringList names() const;
    // A new screen of that name, not loaded; null for a name not registered.
    std::unique_ptr<Screen> create(const QString& name, Context& ctx) const;
    // Makes, loads and shows the screen. Modal: returns once it is hidden or
    // closed, and unloads it. Not modal: it stays, and is deleted when closed.
    // False for a name not registered.
    bool show(const QString& name, Context& ctx, bool modal) const;

  private:
    std::map<QString, Factory> factories_;
};
