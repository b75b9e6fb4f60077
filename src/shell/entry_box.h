#pragma once
// A one-line entry box of the dialogs: a control character other than
// backspace is dropped, and Enter and Escape are left to the dialog.
#include <QLineEdit>

class EntryBox : public QLineEdit {
  public:
    using QLineEdit::QLineEdit;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
};
