#include "shell/fonts.h"

#include <QApplication>
#include <QFont>

void installFonts() {
    QFont::insertSubstitution(QStringLiteral("Arial"), QStringLiteral("Liberation Sans"));
    QFont::insertSubstitution(QStringLiteral("Courier New"), QStringLiteral("Liberation Mono"));
    QFont::insertSubstitution(QStringLiteral("Times New Roman"),
                              QStringLiteral("Liberation Serif"));
    QApplication::setFont(QFont(QStringLiteral("Arial"), 9));
}
