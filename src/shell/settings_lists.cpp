#include "shell/settings_lists.h"

#include <QComboBox>

#include "print/port_parameter_string.h"

void makeFreeText(QComboBox& list) {
    list.setEditable(true);
    list.setInsertPolicy(QComboBox::NoInsert);
    list.setCompleter(nullptr);
}

void fillSettingsLists(const SettingsLists& lists) {
    for (size_t i = 0; i < lists.size(); ++i) {
        lists[i]->clear();
        lists[i]->addItems(settingsChoices[i]);
    }
}

void showSettings(const SettingsLists& lists, const QString& text, QString* rest) {
    const QStringList fields = settingsFields(text, rest);
    for (size_t i = 0; i < lists.size(); ++i) lists[i]->setEditText(fields[int(i)]);
}

QString listedSettings(const SettingsLists& lists) {
    QStringList fields;
    for (QComboBox* list : lists) fields << list->currentText();
    return settingsText(fields);
}
