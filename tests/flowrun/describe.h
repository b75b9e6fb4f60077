#pragma once
// Controls as the report tells them: what a control shows (`read`), how it
// looks (`look`), and which slots a screen's bar shows.
#include <QString>
#include <optional>

class Context;
class QObject;
class QWidget;
class Screen;

// The text, tick state, current entry or title; a timer's interval and state.
QString valueOf(QObject* control);
// Place and size, hidden or disabled, colour, font, alignment, picture, focus
// and the like: "at 92,22 460x100 colour #000000 font Liberation Sans 12 centre".
QString lookOf(QWidget* control, Context& ctx);
// A picture of the hidden banks by its name ("icc.tclavv", "icr.bxm(5)"):
// "picture icr.bxm(10)" when it is the same as a picture listed before it,
// "picture of its own, 44x44" with its size when not; nothing for a name no
// bank has.
std::optional<QString> lookAtBank(const QString& name, Context& ctx);
// The slots shown, in order, with their captions: "4:Non 6:Oui"; a slot whose
// picture or caption is hidden, that leaves the screen or lies on another is
// marked so.
QString barOf(Screen& screen);
