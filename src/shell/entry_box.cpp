#include "shell/entry_box.h"

#include <QKeyEvent>

void EntryBox::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Escape:
            event->ignore();  // the dialog acts on them
            return;
        default:
            break;
    }
    const QString text = event->text();
    if (text.size() == 1 && text.at(0).unicode() < 32 && text.at(0) != QLatin1Char('\b')) {
        event->accept();  // dropped
        return;
    }
    QLineEdit::keyPressEvent(event);
}
