#include "expert/form1.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <exception>

#include "expert/printer_presets.h"
#include "print/channels.h"
#include "print/mscomm.h"
#include "shell/context.h"
#include "store/failure.h"
#include "store/numeric.h"

const char* const Form1::vendorPage = "https://www.kalvo.fr/imprimantes";
const char* const Form1::browserPath = "c:\\Program Files\\Internet Explorer\\iexplore.exe";

namespace {

PrinterFormVariant expertVariant() {
    PrinterFormVariant v;
    v.name = QStringLiteral("Form1");
    v.caption = QString::fromUtf8("Test du port Série pour l'imprimante");
    v.bar = {QStringLiteral("000:108:Fin"), QStringLiteral("001:099:Imprimer"),
             QStringLiteral("002:124:Valider")};
    v.samples = {QStringLiteral("Test Imprimante Ticket"), QStringLiteral("Logiciel de Caisse"),
                 QStringLiteral("Texte en Gras"), QStringLiteral("Texte en Italique"),
                 QString::fromUtf8("Accents :  é è ê à ç")};
    v.drawer = true;
    v.usb = true;
    v.vendorLink = true;
    return v;
}

}  // namespace

Form1::Form1(Context& ctx) : PrinterForm(ctx, expertVariant()), port_(ctx.platform.newPort()) {
    buildCommands();
    buildTestButtons();
    for (const auto& [i, sample] : Label1) onClick(sample, [this] { this->ctx.ui.endProgram(); });
    onClick(Image1, [this] { page_fabricant(); });
    onClick(Label7, [this] { page_fabricant(); });
}

Form1::~Form1() = default;

void Form1::onClick(QObject* control, const std::function<void()>& action) {
    auto guarded = [this, action] {
        try {
            action();
        } catch (const std::exception& e) {
            ctx.ui.fatal(QString::fromUtf8(e.what()));
        }
    };
    if (auto* button = qobject_cast<QPushButton*>(control))
        connect(button, &QPushButton::clicked, this, guarded);
    else if (auto* label = qobject_cast<ClickLabel*>(control))
        connect(label, &ClickLabel::clicked, this, guarded);
}

void Form1::buildCommands() {
    struct Model {
        const char* name;
        const char* caption;
    };
    const Model models[] = {
        {"Command3", "Imprimante Standard Compatible EPSON sur port Série"},
        {"Command5(0)", "METAPACE SRP 350 série"},
        {"Command5(1)", "USB - T1"},
        {"Command5(2)", "USB - T3"},
        {"Command2", "Imprimante CITIZEN CT 280 S - Port USB intégré"},
    };
    int row = 0;
    for (const Model& m : models) {
        const QString name = QString::fromLatin1(m.name);
        onClick(addModelButton(name, QString::fromUtf8(m.caption), row++),
                [this, name] { preset(name); });
    }
    const int y = 222 + 34 * row;
    auto* others = addCommand(QStringLiteral("Command8"),
                              QStringLiteral("Autres imprimantes sur port USB ou PARALELLE"),
                              QRect(724, y, 292, 30));
    onClick(others, [this] { autres_imprimantes(); });
    auto* kitchen = addCommand(QStringLiteral("Command18"), QStringLiteral("Imp. Cuisine"),
                               QRect(724, y + 44, 140, 30));
    onClick(kitchen, [this] { imprimante_cuisine(); });
}

void Form1::buildTestButtons() {
    // Beyond the window's right edge: reached only by moving the focus there.
    struct Test {
        const char* name;
        const char* caption;
        bool visible;
        std::function<void()> action;
    };
    const Test tests[] = {
        {"Command4", "Command4", false, [this] { test_code_barres(); }},
        {"Command10", "serie", true, [this] { test_ean_serie(); }},
        {"Command9", "Command9", true, [this] { test_ean_usb(); }},
        {"Command11", "Command11", true, [this] { test_graphique_serie(); }},
        {"Command12", "Command12", true, [this] { test_graphique_usb(); }},
        {"Command13", "Cheque", true, [this] { test_cheque(1); }},
        {"Command14", "cheque ii", true, [this] { test_cheque(2); }},
        {"Command15", "CHQ III", true, [this] { test_cheque(3); }},
        {"Command16", "cheque 4", true, [this] { test_cheque(4); }},
        {"Command17", "Cheque 5", true, [this] { test_cheque(5); }},
        {"Command6", "fin", true, [this] { ctx.ui.endProgram(); }},
        {"Command7", "Command7", false, [] {}},
    };
    int y = 40;
    for (const Test& t : tests) {
        auto* b = addCommand(QString::fromLatin1(t.name), QString::fromLatin1(t.caption),
                             QRect(1040, y, 100, 26));
        b->setVisible(t.visible);
        onClick(b, t.action);
        y += 30;
    }
}

void Form1::load() {
    fitAndDress();
    skip([&] {
        ctx.store.close(files::sales);
        ctx.ui.letEventsRun();
        ctx.store.open(files::sales, QString::fromLatin1(files::salesName), files::recordLength);
        ctx.ui.letEventsRun();
    });
    if (ctx.fichier_perif == files::sales)
        Label7->setText(QStringLiteral("Poste principal ou Serveur"));
    loadRecords();
}

void Form1::bt_prog_Click(int index) {
    switch (index) {
        case 0:
            quitte_expert();
            break;
        case 1:
            imprime_test();
            break;
        case 2:
            valide_parametres();
            break;
        default:
            break;
    }
}

void Form1::valide_parametres() {
    sauve_parametres();
    ctx.form97(QString::fromUtf8("Parametrage enregistré !"), 0);
}

void Form1::imprime_test() {
    try {
        ctx.mode_accent = numericInt16(Combo1->currentText());
        ctx.famille_usb = numericInt16(Label13->text());
    } catch (const Failure&) {
        ctx.ui.messageBox(QStringLiteral("Erreur de port"));
        return;
    }
    if (check2() != 0) {
        test_usb();
        return;
    }
    printOnSerial(*port_, composeTestTicket(ticketFields()), ctx.mode_accent, false);
}

void Form1::test_usb() {
    try {
        UsbChannel usb(ctx.platform.usb(), [this] { ctx.bulle(QStringLiteral(" "), "2"); });
        usb.send(composeTestTicket(ticketFields()), ctx.mode_accent, ctx.famille_usb,
                 [this] { ctx.ui.letEventsRun(); });
    } catch (const Failure&) {
        ctx.ui.messageBox(QStringLiteral("Erreur de port"));
    }
}

void Form1::preset(const QString& button) {
    efface_zones();
    applyPreset(*this, printerPreset(button));
}

void Form1::imprimante_cuisine() {
    ctx.ui.showScreen(QStringLiteral("nox_sei2"), false);
    setAttribute(Qt::WA_DeleteOnClose);
    close();
}

void Form1::page_fabricant() {
    ctx.platform.openBrowser(QString::fromLatin1(browserPath), QString::fromLatin1(vendorPage));
}
