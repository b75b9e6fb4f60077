#include "shell_test_support.h"

#include <QDir>
#include <QPixmap>
#include <QTimer>

#include "shell/info_bubble.h"
#include "shell/modal.h"
#include "store/failure.h"

void UnreachedPort::setPortOpen(bool open) {
    if (open) throw Failure(QStringLiteral("Port non disponible"));
}

void UnreachedPort::output(QByteArrayView) {
    throw Failure(QStringLiteral("Port fermé"));
}

UsbFamily& TestPlatform::family(qint16) {
    throw Failure(QStringLiteral("Pas de bibliothèque USB dans ce test"));
}

QDateTime TestPlatform::now() const {
    return QDateTime(QDate(2024, 3, 5), QTime(10, 20, 30));
}

void TestInteraction::showDialog() {
    showPromptDialog(*ctx);
}

void TestInteraction::bulle(const QString& texte, const QString& mode) {
    ::bulle(*ctx, texte, mode);
}

void TestInteraction::endProgram() {
    qFatal("the program ended");
}

void TestInteraction::fatal(const QString& what) {
    qFatal("run-time error: %s", qPrintable(what));
}

TestContext::TestContext() : previous_(QDir::currentPath()) {
    ui.ctx = &ctx;
    QDir::setCurrent(dir_.path());
    ctx.store.open(20, QStringLiteral("w_cai020.wdo"), 20);
}

TestContext::~TestContext() {
    ctx.store.closeAll();
    QDir::setCurrent(previous_);
}

QByteArray TestContext::record(int number) {
    return ctx.store.get(20, number);
}

void TestContext::putRecord(int number, const QByteArray& bytes) {
    ctx.store.put(20, number, bytes);
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
