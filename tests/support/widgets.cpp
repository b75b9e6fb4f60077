#include "support/widgets.h"

#include <QApplication>
#include <QTest>
#include <QTimer>

void click(QWidget* w) {
    QVERIFY(w);
    QTest::mouseClick(w, Qt::LeftButton, {}, w->rect().center());
}

QWidget* visibleWindow(const QString& objectName) {
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w->objectName() == objectName && w->isVisible()) return w;
    return nullptr;
}

void whenShown(const QString& objectName, QObject* context, std::function<void(QWidget*)> act) {
    auto* poll = new QTimer(context);
    poll->setInterval(10);
    QObject::connect(poll, &QTimer::timeout, context, [poll, objectName, act] {
        QWidget* window = visibleWindow(objectName);
        if (!window) return;
        poll->stop();
        poll->deleteLater();
        act(window);
    });
    poll->start();
}

bool samePicture(const QPixmap& a, const QPixmap& b) {
    return !a.isNull() && a.toImage() == b.toImage();
}
