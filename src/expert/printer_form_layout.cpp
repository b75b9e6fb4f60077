// The printer form's controls as the screens show them: the code rows in
// their frames, the port, the accents, margin and feed, the sample of the
// ticket, the model buttons and the bar.
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "expert/printer_form.h"

namespace {

const QString green = QStringLiteral("background-color: #b8f0b8;");
const QString yellow = QStringLiteral("background-color: #ffff9c;");

constexpr int boxWidth = 38;
constexpr int boxStep = 41;
constexpr int rowHeight = 22;

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

    // A text of several lines, and a yellow box of the port's column.
    auto wrapped = [this](const char* name, const char* text, const QRect& at) {
        auto* l = make<QLabel>(QString::fromLatin1(name));
        l->setText(QString::fromUtf8(text));
        l->setWordWrap(true);
        l->setGeometry(at);
    };
    auto yellowBox = [this](const char* name, const QRect& at) {
        auto* box = make<QLineEdit>(QString::fromLatin1(name));
        box->setGeometry(at);
        box->setStyleSheet(yellow);
        return box;
    };

    wrapped("Label11",
            "Choisisez l'imprimante avec un des boutons 'bleus', cliquez sur 'imprimer', affinez "
            "les règlages et validez votre choix, votre imprimante ticket est paramétrée",
            QRect(8, 2, 700, 34));

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
    for (const auto& help : helpTexts) wrapped(help.name, help.text, help.at);

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
    wrapped("Label8",
            "Nb de caractère pour décaler le ticket vers la droite (Le cadre doit etre centre sur "
            "l'impression)",
            QRect(506, 326, 156, 62));
    Text111 = yellowBox("Text111", QRect(668, 344, 48, rowHeight));
    wrapped("Label4", "Nb de lignes à la fin du ticket pour l'ejecter", QRect(506, 394, 156, 32));
    Text4 = yellowBox("Text4", QRect(668, 398, 48, rowHeight));

    // The sample of the ticket.
    wrapped("Label9", "Ce texte doit s'imprimer lorsque vous cliquez sur le bouton 'Imprimer'",
            QRect(724, 38, 292, 30));
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
