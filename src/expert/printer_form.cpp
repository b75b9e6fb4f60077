#include "expert/printer_form.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QGroupBox>
#include <QLineEdit>
#include <QPixmap>
#include <QPushButton>
#include <QRadioButton>

#include "print/channels.h"
#include "print/code_string.h"
#include "print/mscomm.h"
#include "shell/button_bar.h"
#include "shell/context.h"
#include "shell/placing.h"
#include "store/codec.h"
#include "store/failure.h"
#include "store/fixed_string.h"
#include "store/numeric.h"

namespace {

const QString green = QStringLiteral("background-color: #b8f0b8;");
const QString yellow = QStringLiteral("background-color: #ffff9c;");

constexpr int boxWidth = 38;
constexpr int boxStep = 41;
constexpr int rowHeight = 22;

const char* const accentEntries[] = {"0 - Accents normaux", "1 - Sans accents",
                                     "2 - Jeux Internationaux"};

QLabel* caption(QWidget* parent, const QString& text, const QRect& where, bool wrap = false) {
    auto* l = new QLabel(text, parent);
    l->setGeometry(where);
    l->setWordWrap(wrap);
    return l;
}

// A code string of the screen: a row of green boxes of one array.
struct CodeRow {
    const char* label;  // nullptr: the row sits alone in its frame
    const char* array;
    int first;
    int count;
};

}  // namespace

QByteArray visibleRecord(QByteArrayView bytes) {
    const qsizetype nul = bytes.indexOf('\0');
    return FixedString(files::recordLength, nul < 0 ? bytes : bytes.first(nul)).bytes();
}

QByteArray portField(qint16 port) {
    return FixedString(2, QByteArray::number(port)).bytes();
}

QByteArray routeRecord(const char* head, qint16 port) {
    FixedString r(files::recordLength, head);
    r.replace(4, portField(port));
    return r.bytes();
}

PrinterForm::PrinterForm(Context& ctx, PrinterFormVariant variant)
    : Screen(ctx, variant.name), variant_(std::move(variant)) {
    setWindowTitle(variant_.caption);
    QFont f = font();
    f.setFamilies({QStringLiteral("Arial"), QStringLiteral("Liberation Sans")});
    f.setPixelSize(11);
    setFont(f);
    buildControls();
}

QLineEdit* PrinterForm::addBox(std::map<int, QLineEdit*>& array, const QString& name, int index,
                               QWidget* parent, const QRect& where, bool isGreen) {
    auto* box = make<QLineEdit>(arrayName(name, index), parent);
    box->setGeometry(where);
    box->setStyleSheet(isGreen ? green : yellow);
    array[index] = box;
    return box;
}

QPushButton* PrinterForm::addCommand(const QString& name, const QString& text, const QRect& where) {
    auto* b = make<QPushButton>(name);
    b->setText(text);
    b->setGeometry(where);
    commands[name] = b;
    return b;
}

QPushButton* PrinterForm::addModelButton(const QString& name, const QString& text, int row) {
    auto* b = addCommand(name, text, QRect(724, 222 + 34 * row, 292, 30));
    b->setStyleSheet(QStringLiteral(
        "QPushButton { background-color: #2f5fb3; color: white; border: 1px solid #1c3c75; }"
        "QPushButton:pressed { background-color: #1c3c75; }"
        "QPushButton:focus { border: 2px solid #ffd000; }"));
    return b;
}

void PrinterForm::buildControls() {
    auto mapFor = [this](const char* array) -> std::map<int, QLineEdit*>& {
        const QString a = QString::fromLatin1(array);
        if (a == QLatin1String("Text2")) return Text2;
        if (a == QLatin1String("Text8")) return Text8;
        return Text9;
    };
    auto frame = [this](const QString& name, const QString& title, const QRect& where) {
        auto* g = make<QGroupBox>(name);
        g->setTitle(title);
        g->setGeometry(where);
        return g;
    };
    auto codeRows = [&](QGroupBox* g, std::initializer_list<CodeRow> rows, int labelWidth) {
        int y = 20;
        for (const CodeRow& row : rows) {
            int x = 10;
            if (row.label) {
                caption(g, QString::fromUtf8(row.label), QRect(x, y + 3, labelWidth, 16));
                x += labelWidth + 6;
            }
            for (int k = 0; k < row.count; ++k)
                addBox(mapFor(row.array), QString::fromLatin1(row.array), row.first + k, g,
                       QRect(x + k * boxStep, y, boxWidth, rowHeight), true);
            y += 29;
        }
    };

    auto* l11 = make<QLabel>(QStringLiteral("Label11"));
    l11->setText(QString::fromUtf8(
        "Choisisez l'imprimante avec un des boutons 'bleus', cliquez sur 'imprimer', affinez les "
        "règlages et validez votre choix, votre imprimante ticket est paramétrée"));
    l11->setWordWrap(true);
    l11->setGeometry(8, 2, 700, 34);

    codeRows(frame(QStringLiteral("Frame4"),
                   QString::fromUtf8("Initialisation ASCII de l'imprimante Ticket"),
                   QRect(8, 38, 490, 108)),
             {{"Initialisation de l'imprimante  (1)", "Text2", 0, 5},
              {"Initialisation de l'imprimante  (2)", "Text8", 0, 6},
              {"Initialisation de l'imprimante  (3)", "Text9", 0, 6}},
             210);
    codeRows(frame(QStringLiteral("Frame3"), QStringLiteral("Parametrage Caracteres"),
                   QRect(8, 150, 490, 136)),
             {{"Caractères GRAS ON", "Text8", 10, 6},
              {"Caractères GRAS OFF", "Text8", 20, 6},
              {"Caractères ITALIQUE ON", "Text8", 30, 6},
              {"Caractères ITALIQUE OFF", "Text8", 40, 6}},
             210);
    auto* frame2 = frame(QStringLiteral("Frame2"), QStringLiteral("Ordre de coupe du papier"),
                         QRect(8, 290, 490, 52));
    codeRows(frame2, {{nullptr, "Text2", 5, 5}}, 0);
    Check1 = make<QCheckBox>(QStringLiteral("Check1"), frame2);
    Check1->setText(QStringLiteral("Tester le cutter lors de l'impression"));
    Check1->setGeometry(226, 20, 256, rowHeight);

    if (variant_.drawer) {
        auto* frame5 = frame(QStringLiteral("Frame5"), QStringLiteral("Ouverture du Tiroir Caisse"),
                             QRect(8, 346, 490, 80));
        Check111 = make<QCheckBox>(QStringLiteral("Check111"), frame5);
        Check111->setText(QStringLiteral("Connecter un tiroir-Caisse"));
        Check111->setGeometry(10, 18, 300, 20);
        for (int i = 0; i <= 10; ++i)
            addBox(Text1, QStringLiteral("Text1"), i, frame5,
                   QRect(10 + i * boxStep, 44, boxWidth, rowHeight), true);
    }

    // The three help texts under the codes.
    const struct {
        const char* name;
        const char* text;
        QRect at;
    } helpTexts[] = {
        {"Label6",
         "La majorité des imprimantes tickets possèdent un mode d'émulation EPSON COMPATIBLE. Si "
         "vous ne trouvez pas les codes de votre imprimante, sélectionnez Imprimante compatible "
         "Epson avec le bouton de droite.",
         QRect(8, 432, 490, 48)},
        {"Label5",
         "Les zones en vert doivent être vides ou remplies par des caractères ASCII en décimal de "
         "000 à 255. Ces caractères servent à paramétrer votre imprimante ticket et sont "
         "disponibles dans la documentation de votre imprimante",
         QRect(8, 484, 490, 48)},
        {"Label3",
         "Réglez les critères et cliquez sur 'Imprimer' pour tester votre imprimante. Cliquez sur "
         "'Valider' pour enregistrer le parametrage.",
         QRect(8, 536, 490, 34)},
    };
    for (const auto& help : helpTexts) {
        auto* label = make<QLabel>(QString::fromLatin1(help.name));
        label->setText(QString::fromUtf8(help.text));
        label->setWordWrap(true);
        label->setGeometry(help.at);
    }

    // The port: settings, number, accents, margin and feed.
    auto* frame6 = frame(QStringLiteral("Frame6"), QString::fromUtf8("Paramètres du port série"),
                         QRect(506, 38, 210, 136));
    const char* const settingLabels[] = {"Bits par seconde ", "Parité (n/e)",
                                         "Bits de données ( 7/8 )", "Bit de Stop (0/1)"};
    for (int i = 0; i < 4; ++i) {
        caption(frame6, QString::fromUtf8(settingLabels[i]), QRect(10, 23 + 28 * i, 128, 16));
        addBox(Text6, QStringLiteral("Text6"), i, frame6, QRect(140, 20 + 28 * i, 60, rowHeight),
               false);
    }
    auto* frame1 =
        frame(QStringLiteral("Frame1"), QString::fromUtf8("N° de port"), QRect(506, 178, 210, 112));
    for (int i = 1; i <= 12; ++i) {
        auto* o = make<QRadioButton>(arrayName(QStringLiteral("Option1"), i), frame1);
        o->setText(QStringLiteral("Com %1").arg(i));
        o->setGeometry(10 + 66 * ((i - 1) / 4), 20 + 22 * ((i - 1) % 4), 64, 20);
        Option1[i] = o;
    }
    Combo1 = make<QComboBox>(QStringLiteral("Combo1"));
    Combo1->setGeometry(506, 296, 210, 24);
    Combo1->setStyleSheet(QStringLiteral("QComboBox { background-color: #ffff9c; }"));
    auto* l8 = make<QLabel>(QStringLiteral("Label8"));
    l8->setText(QString::fromUtf8(
        "Nb de caractère pour décaler le ticket vers la droite (Le cadre doit etre centre sur "
        "l'impression)"));
    l8->setWordWrap(true);
    l8->setGeometry(506, 326, 156, 62);
    Text111 = make<QLineEdit>(QStringLiteral("Text111"));
    Text111->setGeometry(668, 344, 48, rowHeight);
    Text111->setStyleSheet(yellow);
    auto* l4 = make<QLabel>(QStringLiteral("Label4"));
    l4->setText(QString::fromUtf8("Nb de lignes à la fin du ticket pour l'ejecter"));
    l4->setWordWrap(true);
    l4->setGeometry(506, 394, 156, 32);
    Text4 = make<QLineEdit>(QStringLiteral("Text4"));
    Text4->setGeometry(668, 398, 48, rowHeight);
    Text4->setStyleSheet(yellow);

    // The sample of the ticket.
    auto* l9 = make<QLabel>(QStringLiteral("Label9"));
    l9->setText(
        QStringLiteral("Ce texte doit s'imprimer lorsque vous cliquez sur le bouton "
                       "'Imprimer'"));
    l9->setWordWrap(true);
    l9->setGeometry(724, 38, 292, 30);
    auto* paper = make<QLabel>(QStringLiteral("Shape1"));
    paper->setGeometry(724, 70, 292, 108);
    paper->setStyleSheet(QStringLiteral("background-color: white; border: 1px solid #808080;"));
    for (int i = 0; i < variant_.samples.size(); ++i) {
        auto* s = make<ClickLabel>(arrayName(QStringLiteral("Label1"), i));
        s->setText(variant_.samples[i]);
        s->setGeometry(736, 76 + 20 * i, 272, 18);
        QFont sf = s->font();
        sf.setPixelSize(12);
        sf.setBold(i == 2);
        sf.setItalic(i == 3);
        s->setFont(sf);
        Label1[i] = s;
    }

    Label13 = make<QLabel>(QStringLiteral("Label13"));
    if (variant_.usb) {
        Label13->setGeometry(724, 620, 100, 16);
        Label13->setVisible(false);
        Check2 = make<QCheckBox>(QStringLiteral("Check2"));
        Check2->setTristate(true);
        Check2->setGeometry(724, 640, 100, 16);
        Check2->setVisible(false);
    } else {
        Label13->setText(variant_.heading);
        QFont hf = Label13->font();
        hf.setPixelSize(20);
        hf.setBold(true);
        Label13->setFont(hf);
        Label13->setAlignment(Qt::AlignCenter);
        Label13->setGeometry(724, 184, 292, 34);
    }

    Image1 = make<ClickLabel>(QStringLiteral("Image1"));
    Image1->setGeometry(724, 480, 120, 90);
    Image1->setAlignment(Qt::AlignCenter);
    Label7 = make<ClickLabel>(QStringLiteral("Label7"));
    Label7->setText(QStringLiteral("Label7"));
    Label7->setWordWrap(true);
    Label7->setGeometry(850, 500, 166, 40);
    Label7->setVisible(variant_.vendorLink);

    prepareBar(int(variant_.bar.size()), QPoint(506, 600), 104);
}

int PrinterForm::check2() const {
    if (!Check2) return 0;
    switch (Check2->checkState()) {
        case Qt::Unchecked:
            return 0;
        case Qt::Checked:
            return 1;
        case Qt::PartiallyChecked:
            return 2;
    }
    return 0;
}

void PrinterForm::setCheck2(int value) {
    if (!Check2) return;
    if (value < 0 || value > 2) throw Failure(QStringLiteral("Valeur de propriété non valide"));
    Check2->setCheckState(value == 0   ? Qt::Unchecked
                          : value == 1 ? Qt::Checked
                                       : Qt::PartiallyChecked);
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
        for (const char* entry : accentEntries) Combo1->addItem(QString::fromLatin1(entry));
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
        skip([&] {
            const double tick = numericValue(record(rec::drawerOnPrinter));
            if (tick < 0 || tick > 1)
                throw Failure(QStringLiteral("Valeur de propriété non valide"));
            Check111->setChecked(tick == 1);
        });
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
        store(rec::drawerOnPrinter, Check111->isChecked() ? " 1" : " 0");
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
