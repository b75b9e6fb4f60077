#include "print/qt_usb_libraries.h"

#include <QCoreApplication>
#include <QDir>

#include "store/failure.h"

extern "C" {
using OpenPlain = short (*)();
using OpenWithSelector = short (*)(int);
using WriteBytes = int (*)(const char*, int);
using ClosePort = short (*)();
}

struct QtUsbFamily::Functions {
    QFunctionPointer open = nullptr;
    WriteBytes write = nullptr;
    ClosePort close = nullptr;
};

namespace {

constexpr UsbFamilyNames familyT1{"CommUSB-T1", "OpenUsbPort", "WriteUSB", "CloseUsbPort", false};
constexpr UsbFamilyNames familyT3{"CommUSB-T3", "OpenUsbPor3", "WriteUS3", "CloseUsbPor3", true};
// What OpenUsbPor3 selects with it is the vendor's; it is passed as it is.
constexpr int openSelector = 2;

}  // namespace

QtUsbFamily::QtUsbFamily(UsbFamilyNames names, QString programFolder)
    : names_(names), programFolder_(std::move(programFolder)) {}

QtUsbFamily::~QtUsbFamily() = default;

// The first candidate that loads is the library; a function missing from it
// is a failure, as it would be for the program's own loader.
void QtUsbFamily::load() {
    if (functions_) return;
    const QString name = QString::fromLatin1(names_.library);
    const QString folder =
        programFolder_.isEmpty() ? QCoreApplication::applicationDirPath() : programFolder_;
    const QStringList candidates{QDir(folder).filePath(name), name, QDir::current().filePath(name)};
    for (const QString& candidate : candidates) {
        auto library = std::make_unique<QLibrary>(candidate);
        if (!library->load()) continue;
        auto functions = std::make_unique<Functions>();
        functions->open = library->resolve(names_.open);
        functions->write = reinterpret_cast<WriteBytes>(library->resolve(names_.write));
        functions->close = reinterpret_cast<ClosePort>(library->resolve(names_.close));
        if (!functions->open || !functions->write || !functions->close) {
            throw Failure(QStringLiteral("Fonction introuvable dans %1").arg(name));
        }
        library_ = std::move(library);
        functions_ = std::move(functions);
        return;
    }
    throw Failure(QStringLiteral("Bibliothèque introuvable : %1").arg(name));
}

qint16 QtUsbFamily::open() {
    load();
    if (names_.openTakesSelector) {
        return reinterpret_cast<OpenWithSelector>(functions_->open)(openSelector);
    }
    return reinterpret_cast<OpenPlain>(functions_->open)();
}

qint32 QtUsbFamily::write(const QByteArray& bytes) {
    load();
    return functions_->write(bytes.constData(), int(bytes.size()));
}

void QtUsbFamily::close() {
    load();
    functions_->close();
}

QtUsbLibraries::QtUsbLibraries(const QString& programFolder)
    : t1_(familyT1, programFolder), t3_(familyT3, programFolder) {}

UsbFamily& QtUsbLibraries::family(qint16 famille_usb) {
    return famille_usb == 0 ? t1_ : t3_;
}
