#include "expert/printer_presets.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <stdexcept>

#include "expert/printer_form.h"

namespace {

using Tick = PrinterPreset::Tick;

// clang-format off
const std::vector<PrinterPreset> presets = {
//   button         init1      init2          bold on        bold off       italic on      italic off     cut            drawer                 settings          margin feed cutter         usb family
    {"Command3",    "027 064", "027 116 016", "027 069 001", "027 069 000", "027 045 049", "027 045 048", "029 086 048", "027 112 048 100 250", "9600 n 8 1",   "4",  "5", Tick::Keep,    0, nullptr},
    {"Command5(0)", "027 064", "027 116 016", "027 069 001", "027 069 000", "027 045 049", "027 045 048", "029 086 048", "027 112 048 055 121", "9600 n 8 1",   "4",  "5", Tick::Checked, 0, ""},
    {"Command5(1)", "027 064", "027 116 016", "027 069 001", "027 069 000", "027 045 049", "027 045 048", "029 086 048", "027 112 048 055 121", "9600 n 8 1",   "4",  "5", Tick::Checked, 1, "0"},
    {"Command5(2)", "027 064", "027 116 016", "027 069 001", "027 069 000", "027 045 049", "027 045 048", "029 086 048", "027 112 048 055 121", "9600 n 8 1",   "4",  "5", Tick::Checked, 2, "2"},
    {"Command2",    "027 064", "027 116 009", "027 069 001", "027 069 000", "",            "",            "",            "",                    "115200 n 8 1", "0",  "5", Tick::Keep,    0, nullptr},
};
// clang-format on

QStringList values(const char* group) {
    return QString::fromLatin1(group).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

void fill(std::map<int, QLineEdit*>& boxes, int first, const char* group) {
    const QStringList v = values(group);
    for (int k = 0; k < v.size(); ++k) boxes.at(first + k)->setText(v[k]);
}

}  // namespace

const std::vector<PrinterPreset>& printerPresets() {
    return presets;
}

const PrinterPreset& printerPreset(const QString& button) {
    for (const PrinterPreset& p : presets)
        if (button == QLatin1String(p.button)) return p;
    throw std::out_of_range("no preset for " + button.toStdString());
}

void applyPreset(PrinterForm& form, const PrinterPreset& p) {
    fill(form.Text2, 0, p.init1);
    fill(form.Text6, 0, p.settings);
    fill(form.Text8, 0, p.init2);
    fill(form.Text8, 10, p.boldOn);
    fill(form.Text8, 20, p.boldOff);
    fill(form.Text2, 5, p.cut);
    fill(form.Text8, 30, p.italicOn);
    fill(form.Text8, 40, p.italicOff);
    form.Text111->setText(QString::fromLatin1(p.margin));
    form.Text4->setText(QString::fromLatin1(p.feed));
    if (form.variant().drawer) {
        const QStringList pulse = values(p.drawer);
        for (int i = 0; i <= 10; ++i)
            form.Text1.at(i)->setText(i < pulse.size() ? pulse[i] : QStringLiteral(" "));
    }
    if (p.cutterTest == Tick::Checked) form.Check1->setChecked(true);
    if (!form.variant().usb) return;
    form.setCheck2(p.usb);
    if (p.usbFamily) form.Label13->setText(QString::fromLatin1(p.usbFamily));
}
