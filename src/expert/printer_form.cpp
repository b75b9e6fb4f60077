#include "expert/printer_form.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QPixmap>
#include <QRadioButton>

#include "print/accents.h"
#include "print/channels.h"
#include "print/code_string.h"
#include "print/mscomm.h"
#include "shell/button_bar.h"
#include "shell/context.h"
#include "shell/placing.h"
#include "shell/tick_box.h"
#include "store/codec.h"
#include "store/failure.h"
#include "store/fixed_string.h"
#include "store/numeric.h"

PrinterForm::PrinterForm(Context& ctx, PrinterFormVariant variant)
    : Screen(ctx, variant.name), variant_(std::move(variant)) {
    setWindowTitle(variant_.caption);
    QFont f = font();
    f.setFamilies({QStringLiteral("Arial"), QStringLiteral("Liberation Sans")});
    f.setPixelSize(11);
    setFont(f);
    buildControls();
}

int PrinterForm::check2() const {
    return Check2 ? tickValue(*Check2) : 0;
}

void PrinterForm::setCheck2(int value) {
    if (Check2) setTickValue(*Check2, value);
}

QStringList PrinterForm::texts(const std::map<int, QLineEdit*>& array, int first, int count) const {
    QStringList out;
    for (int k = 0; k < count; ++k) out << array.at(first + k)->text();
    return out;
}

void PrinterForm::setTexts(std::map<int, QLineEdit*>& array, int first, const QStringList& values) {
    for (int k = 0; k < values.size(); ++k) array.at(first + k)->setText(values[k]);
}

TicketFields PrinterForm::ticketFields() const {
    TicketFields f;
    f.init1 = texts(Text2, 0, 5);
    f.init2 = texts(Text8, 0, 6);
    f.init3 = texts(Text9, 0, 6);
    f.boldOn = texts(Text8, 10, 6);
    f.boldOff = texts(Text8, 20, 6);
    f.italicOn = texts(Text8, 30, 6);
    f.italicOff = texts(Text8, 40, 6);
    f.cut = texts(Text2, 5, 5);
    f.margin = Text111->text();
    f.feed = Text4->text();
    for (const auto& [i, label] : Label1) f.samples << label->text();
    f.cutWanted = Check1->isChecked();
    return f;
}

void PrinterForm::fitAndDress() {
    skip([&] { place_ecran(*this); });
    skip([&] {
        QPixmap picture;
        if (QFile::exists(QStringLiteral("kl_img_024.gif")) &&
            picture.load(QStringLiteral("kl_img_024.gif")))
            Image1->setPixmap(picture.scaled(Image1->size(), Qt::KeepAspectRatio));
    });
    for (const QString& definition : variant_.bar) cree_bouton(*this, definition);
    // The accent tables are built into the print path; nothing to build here.
    skip([&] {
        Combo1->clear();
        for (const char* entry : accentModeEntries) Combo1->addItem(QString::fromLatin1(entry));
    });
}

RecordRef PrinterForm::own(const RecordRef& r) const {
    return r.file == RecordFile::Peripheral ? RecordRef{variant_.printerFile, r.number} : r;
}

QByteArray PrinterForm::stored(const RecordRef& r) {
    return ctx.get(own(r));
}

QByteArray PrinterForm::record(const RecordRef& r) {
    return visibleRecord(stored(r));
}

void PrinterForm::store(const RecordRef& r, QByteArrayView bytes) {
    ctx.put(own(r), bytes);
}

void PrinterForm::loadSettings() {
    QString rest =
        codec::fromBytes(record(rec::serialSettings)).trimmed() + QStringLiteral(",,,,,");
    const char* const defaults[] = {"9600", "n", "8", "1"};
    for (int i = 0; i < 4; ++i) {
        const qsizetype comma = rest.indexOf(QLatin1Char(','));
        const QString part = rest.left(comma).trimmed();
        rest = rest.mid(comma + 1);
        Text6.at(i)->setText(part.isEmpty() ? QString::fromLatin1(defaults[i]) : part);
    }
}

void PrinterForm::loadPort() {
    const qint16 n = numericInt16(codec::boxText(stored(rec::route).mid(3, 2)));
    ctx.port_serie = n;
    if (n < 1 || n > 12) throw Failure(QStringLiteral("Indice hors limites"));
    Option1.at(n)->setChecked(true);
}

void PrinterForm::loadRecords() {
    auto codes = [&](const RecordRef& r, CodeLayout layout, std::map<int, QLineEdit*>& array,
                     int first, int count) {
        skip([&] { setTexts(array, first, readCodeFields(stored(r), layout, count)); });
    };
    codes(rec::init1, CodeLayout::Separated, Text2, 0, 5);
    codes(rec::init2, CodeLayout::Packed, Text8, 0, 6);
    codes(rec::boldOn, CodeLayout::Packed, Text8, 10, 6);
    codes(rec::boldOff, CodeLayout::Packed, Text8, 20, 6);
    codes(rec::italicOn, CodeLayout::Packed, Text8, 30, 6);
    codes(rec::italicOff, CodeLayout::Packed, Text8, 40, 6);
    codes(rec::init3, CodeLayout::Packed, Text9, 0, 6);
    codes(rec::paperCut, CodeLayout::Separated, Text2, 5, 5);
    skip([&] { loadSettings(); });
    skip([&] { loadPort(); });
    skip([&] { Text111->setText(codec::fromBytes(record(rec::leftMargin)).trimmed()); });
    skip([&] {
        const double mode = numericValue(record(rec::accentMode));
        if (mode < -1) throw Failure(QStringLiteral("Valeur de propriété non valide"));
        Combo1->setCurrentIndex(mode >= 0 && mode < Combo1->count() ? int(mode) : -1);
    });
    skip([&] { Text4->setText(codec::fromBytes(record(rec::feedLines)).trimmed()); });
    skip([&] {
        const QByteArray kind = record(rec::printerKind);
        if (variant_.usb) setCheck2(qAbs(numericInt16(codec::fromBytes(kind))));
    });
    if (variant_.drawer) {
        skip([&] { setTickValue(*Check111, numericValue(record(rec::drawerOnPrinter))); });
        for (int i = 0; i <= 10; ++i)
            skip([&] {
                const QByteArray r =
                    stored(RecordRef{rec::drawerOnPrinter.file, rec::drawerPulseFirst + i});
                Text1.at(i)->setText(readDrawerField(codec::toBytes(codec::boxText(r))));
            });
        skip([&] { record(rec::drawerTrailer); });
    }
    if (variant_.usb) skip([&] { Label13->setText(codec::boxText(stored(rec::usbFamily))); });
}

void PrinterForm::saveSettings() {
    QStringList parts;
    for (int i = 0; i < 4; ++i) parts << Text6.at(i)->text().trimmed();
    store(rec::serialSettings, codec::toBytes(parts.join(QLatin1Char(','))));
}

void PrinterForm::savePort() {
    FixedString r(files::recordLength, stored(rec::route));
    r.replace(4, portField(ctx.port_serie));
    store(rec::route, r.bytes());
}

void PrinterForm::savePlain(const RecordRef& r, const QString& text) {
    store(r, codec::toBytes(text));
}

void PrinterForm::saveRecords() {
    auto codes = [&](const RecordRef& r, CodeLayout layout, const std::map<int, QLineEdit*>& array,
                     int first, int count) {
        store(r, writeCodeFields(stored(r), layout, texts(array, first, count)));
    };
    codes(rec::init1, CodeLayout::Separated, Text2, 0, 5);
    ctx.ui.letEventsRun();
    codes(rec::init2, CodeLayout::Packed, Text8, 0, 6);
    codes(rec::init3, CodeLayout::Packed, Text9, 0, 6);
    codes(rec::boldOn, CodeLayout::Packed, Text8, 10, 6);
    codes(rec::boldOff, CodeLayout::Packed, Text8, 20, 6);
    codes(rec::italicOn, CodeLayout::Packed, Text8, 30, 6);
    codes(rec::italicOff, CodeLayout::Packed, Text8, 40, 6);
    saveSettings();
    codes(rec::paperCut, CodeLayout::Separated, Text2, 5, 5);
    ctx.ui.letEventsRun();
    savePort();
    savePlain(rec::leftMargin, Text111->text().trimmed());
    savePlain(rec::accentMode, Combo1->currentText().left(1));
    savePlain(rec::feedLines, Text4->text().trimmed());
    if (variant_.drawer) {
        store(rec::drawerOnPrinter, " " + QByteArray::number(tickValue(*Check111)));
        for (int i = 0; i <= 10; ++i)
            store(RecordRef{rec::drawerOnPrinter.file, rec::drawerPulseFirst + i},
                  writeDrawerField(Text1.at(i)->text()));
    }
    if (variant_.usb) store(rec::usbFamily, codec::toBytes(Label13->text()));
}

void PrinterForm::openPort(MSComm& port) {
    for (int i = 1; i <= 12; ++i)
        if (Option1.at(i)->isChecked()) ctx.port_serie = qint16(i);
    port.setCommPort(ctx.port_serie);
    port.setPortOpen(true);
    QStringList parts;
    for (int i = 0; i < 4; ++i) parts << Text6.at(i)->text().trimmed();
    ctx.reglages_serie = parts.join(QLatin1Char(','));
    port.setSettings(ctx.reglages_serie);
}

void PrinterForm::printOnSerial(MSComm& port, const Job& job, int mode, bool kitchen) {
    try {
        openPort(port);
        sendSerial(
            port, job, mode, [this] { ctx.ui.letEventsRun(); }, kitchen);
        if (kitchen) ctx.chaine_travail.clear();
        port.setPortOpen(false);
    } catch (const Failure&) {
        ctx.ui.messageBox(QStringLiteral("Erreur de port"));
    }
}

void PrinterForm::efface_zones() {
    for (QLineEdit* box : findChildren<QLineEdit*>()) box->setText(QStringLiteral(" "));
}

void PrinterForm::fatalOnFailure(const std::function<void()>& statement) {
    try {
        statement();
    } catch (const Failure& f) {
        ctx.ui.fatal(QString::fromStdString(f.what()));
    }
}
