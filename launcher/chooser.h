#pragma once
// The one question the launcher asks: which folder is the sales program's
// data directory. It lists the folders found under the Wine prefixes and
// offers the desktop's folder dialog for any other; a folder without the
// data file is taken only after the person confirms it.
#include <QDialog>
#include <QStringList>
#include <functional>

class QListWidget;

class DataDirChooser : public QDialog {
  public:
    explicit DataDirChooser(const QStringList& found, QWidget* parent = nullptr);
    QString chosen() const { return chosen_; }

    // Asks for any folder; Qt's folder dialog unless replaced (tests).
    std::function<QString(QWidget*)> pickFolder;

  private:
    void takeSelected();
    void takeOther();

    QListWidget* list_;
    QString chosen_;
};

// "Yes" to a folder that holds no data file; the default answer is no.
bool confirmFolderWithoutData(QWidget* parent, const QString& folder);
