#pragma once
// Acting on real widgets offscreen as a user would.
#include <QObject>
#include <QPixmap>
#include <QWidget>
#include <functional>

// A left click in the middle of the widget.
void click(QWidget* w);
// The visible top-level widget of that name, or null.
QWidget* visibleWindow(const QString& objectName);
// Runs the action on the top-level widget of that name as soon as it is
// visible (polled from the event loop, as a user would wait for it).
void whenShown(const QString& objectName, QObject* context, std::function<void(QWidget*)> act);
// Pictures are the same when their pixels are.
bool samePicture(const QPixmap& a, const QPixmap& b);
