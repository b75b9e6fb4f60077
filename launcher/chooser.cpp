#include "chooser.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

#include "data_dir.h"

DataDirChooser::DataDirChooser(const QStringList& found, QWidget* parent)
    : QDialog(parent), list_(new QListWidget(this)) {
    setWindowTitle(QStringLiteral("Périphériques de caisse"));
    auto* question = new QLabel(
        found.isEmpty()
            ? QStringLiteral("Aucun dossier du logiciel de caisse (avec %1) n'a été trouvé "
                             "sous Wine.\nChoisissez le dossier de ses données :")
                  .arg(QLatin1String(dataFileName))
            : QStringLiteral("Dans quel dossier le logiciel de caisse garde-t-il ses données ?"),
        this);
    list_->setObjectName(QStringLiteral("dossiers"));
    list_->addItems(found);
    list_->setCurrentRow(0);
    list_->setVisible(!found.isEmpty());

    auto* buttons = new QDialogButtonBox(this);
    QPushButton* open = buttons->addButton(QStringLiteral("Ouvrir"), QDialogButtonBox::AcceptRole);
    open->setObjectName(QStringLiteral("ouvrir"));
    open->setEnabled(!found.isEmpty());
    QPushButton* other =
        buttons->addButton(QStringLiteral("Autre dossier…"), QDialogButtonBox::ActionRole);
    other->setObjectName(QStringLiteral("autre"));
    buttons->addButton(QStringLiteral("Annuler"), QDialogButtonBox::RejectRole)
        ->setObjectName(QStringLiteral("annuler"));
    connect(open, &QPushButton::clicked, this, &DataDirChooser::takeSelected);
    connect(other, &QPushButton::clicked, this, &DataDirChooser::takeOther);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(list_, &QListWidget::itemDoubleClicked, this, &DataDirChooser::takeSelected);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(question);
    layout->addWidget(list_);
    layout->addWidget(buttons);
    resize(640, found.isEmpty() ? 120 : 320);

    pickFolder = [](QWidget* owner) {
        return QFileDialog::getExistingDirectory(
            owner, QStringLiteral("Dossier des données du logiciel de caisse"), QDir::homePath());
    };
}

void DataDirChooser::takeSelected() {
    if (!list_->currentItem()) return;
    chosen_ = list_->currentItem()->text();
    accept();
}

void DataDirChooser::takeOther() {
    const QString folder = pickFolder(this);
    if (folder.isEmpty()) return;
    if (!holdsData(folder) && !confirmFolderWithoutData(this, folder)) return;
    chosen_ = folder;
    accept();
}

bool confirmFolderWithoutData(QWidget* parent, const QString& folder) {
    QMessageBox box(QMessageBox::Warning, QStringLiteral("Périphériques de caisse"),
                    QStringLiteral("Le dossier %1 ne contient pas %2 : le logiciel de caisse n'y "
                                   "lit pas ses réglages.\nY installer quand même les "
                                   "périphériques ?")
                        .arg(folder, QLatin1String(dataFileName)),
                    QMessageBox::Yes | QMessageBox::No, parent);
    box.setDefaultButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes;
}
