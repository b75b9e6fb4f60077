#include "drawer/tirrro.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>

#include "drawer/drawer_pulse.h"
#include "print/port_parameter_string.h"
#include "shell/button_bar.h"
#include "shell/context.h"
#include "shell/image_banks.h"
#include "shell/placing.h"
#include "shell/tick_box.h"
#include "store/codec.h"
#include "store/failure.h"
#include "store/numeric.h"
#include "store/record_files.h"

namespace {

const char* const barDefinitions[] = {"000:124:Valider", "001:106:Tiroir", "002:129:Annuler"};

// A wait outside this range shows as 500; the record keeps what it holds.
constexpr double shortestWait = 100;
constexpr double longestWait = 5000;
constexpr double usualWait = 500;

constexpr int codeGroups = 5;
constexpr int closingBoxes = 10;  // Text1(10) to Text1(14)

QLabel* text(QWidget* parent, const char* name, const QString& caption, const QRect& where,
             int pixelSize = 13, bool bold = false) {
    auto* label = new QLabel(caption, parent);
    label->setObjectName(QString::fromLatin1(name));
    label->setGeometry(where);
    label->setWordWrap(true);
    QFont font = label->font();
    font.setPixelSize(pixelSize);
    font.setBold(bold);
    label->setFont(font);
    return label;
}

QLabel* heading(QWidget* parent, const char* name, const QString& caption, const QRect& where) {
    QLabel* label = text(parent, name, caption, where, 13, true);
    label->setStyleSheet(QStringLiteral("background: #d6e2ef; border: 1px solid #b8c4d0;"));
    return label;
}

// Five groups of three characters: each box's text with three blanks behind
// it, cut to three.
QString groups(const std::map<int, QLineEdit*>& boxes, int first) {
    QString joined;
    for (int i = 0; i < codeGroups; ++i)
        joined += (boxes.at(first + i)->text() + QStringLiteral("   ")).left(3);
    return joined;
}

}  // namespace

tirrro::tirrro(Context& ctx) : Screen(ctx, QStringLiteral("tirrro")) {
    setWindowTitle(QString::fromUtf8("Paramétrage Tiroir-Caisse indépendant"));
    QFont f = font();
    f.setFamilies({QStringLiteral("Arial"), QStringLiteral("Liberation Sans")});
    f.setPixelSize(13);
    setFont(f);
    resize(720, 600);
    buildControls();
}

void tirrro::buildControls() {
    Image1 = make<QLabel>(QStringLiteral("Image1"));
    Image1->setGeometry(48, 44, 72, 72);
    Image1->setAlignment(Qt::AlignCenter);
    Image1->setPixmap(ctx.icc().p11Picture(106));  // until the suite's own picture is found
    text(this, "Label1", QString::fromUtf8("Paramétrage Tiroir-Caisse indépendant "),
         QRect(132, 44, 540, 30), 20, true);
    text(this, "Label2",
         QString::fromUtf8("Ce module ne doit être activé que si vous utilisez un tiroir-caisse "
                           "connecté sur un port Série (RS-232) ou sur une interface USB avec "
                           "émulation série."),
         QRect(132, 78, 540, 52));
    QLabel* warning = text(
        this, "Label3",
        QString::fromUtf8("Vous ne devez pas activer ce module si votre tiroir-caisse est connecté "
                          "sur l'imprimante. Dans ce cas utilisez le parametrage de l'imprimante "
                          "pour déclencher votre tiroir caisse."),
        QRect(48, 134, 624, 52), 13, true);
    warning->setStyleSheet(QStringLiteral("color: #a01818;"));
    Check1 = make<QCheckBox>(QStringLiteral("Check1"));
    Check1->setText(QString::fromUtf8("J'ai un tiroir caisse indépendant connecté"));
    Check1->setGeometry(48, 194, 624, 26);
    QFont checkFont = Check1->font();
    checkFont.setBold(true);
    checkFont.setPixelSize(14);
    Check1->setFont(checkFont);

    // The port and its settings.
    const struct {
        const char* label;
        const char* caption;
        const char* list;
    } rows[] = {{"Label4", " N° du port série", "Combo10"},
                {"Label10", " Vitesse du port série", "Combo1"},
                {"Label9", " Parité", "Combo2"},
                {"Label8", " Nb de bits", "Combo3"},
                {"Label7", " Bit de Stop", "combo4"}};
    QComboBox* lists[5];
    for (int i = 0; i < 5; ++i) {
        const int y = 232 + 34 * i;
        heading(this, rows[i].label, QString::fromUtf8(rows[i].caption), QRect(48, y, 176, 28));
        lists[i] = make<QComboBox>(QString::fromLatin1(rows[i].list));
        lists[i]->setGeometry(230, y, 110, 28);
        if (i > 0) makeFreeText(*lists[i]);
    }
    Combo10 = lists[0];
    Combo1 = lists[1];
    Combo2 = lists[2];
    Combo3 = lists[3];
    combo4 = lists[4];

    // The pulse: the wait, then the two strings.
    heading(this, "Label12", QStringLiteral("Temporisation en ms (1/1000 s)"),
            QRect(372, 232, 220, 28));
    Text11 = make<QLineEdit>(QStringLiteral("Text11"));
    Text11->setGeometry(598, 232, 74, 28);
    auto* frame5 = make<QGroupBox>(QStringLiteral("Frame5"));
    frame5->setTitle(QStringLiteral("Codes ASCII "));
    frame5->setGeometry(372, 268, 300, 130);
    const struct {
        const char* label;
        const char* caption;
        int first;
        int top;
    } strings[] = {{"Label5", "Ouverture du relais", 0, 22},
                   {"Label11", "Fermeture du relais", closingBoxes, 74}};
    for (const auto& row : strings) {
        text(frame5, row.label, QString::fromLatin1(row.caption), QRect(12, row.top, 276, 18));
        for (int i = 0; i < codeGroups; ++i) {
            auto* box = make<QLineEdit>(arrayName(QStringLiteral("Text1"), row.first + i), frame5);
            box->setGeometry(12 + 56 * i, row.top + 20, 50, 26);
            box->setAlignment(Qt::AlignCenter);
            box->setStyleSheet(QStringLiteral("background-color: #b8f0b8;"));
            Text1[row.first + i] = box;
        }
    }

    text(this, "Label13",
         QString::fromUtf8("Ajustez les paramètres et cliquez sur 'Caisse' pour tester "
                           "l'ouverture. Si le tiroir s'ouvre vous pouvez cocher 'J'ai un tiroir "
                           "indépendant connecté' et valider"),
         QRect(48, 410, 624, 52), 13);

    prepareBar(3, QPoint(48, 478), 100);
    text(this, "Label6", QStringLiteral("Annuler l'utilisation du tiroir"),
         QRect(336, 478, 200, 76));
}

void tirrro::load() {
    skip([&] { pose_cadre(*this); });
    skip([&] { centre_ecran(*this); });
    skip([&] { ouvre_fich142(ctx.store, ctx.today()); });
    skip([&] {
        QPixmap picture;
        if (!picture.load(QStringLiteral("kl_img_010.gif")))
            throw Failure(QStringLiteral("Fichier introuvable : kl_img_010.gif"));
        Image1->setPixmap(picture.scaled(Image1->size(), Qt::KeepAspectRatio));
    });
    for (const char* definition : barDefinitions)
        skip([&] { cree_bouton(*this, QString::fromLatin1(definition)); });
    skip([&] {
        Combo10->clear();
        for (int port = 1; port <= 12; ++port) Combo10->addItem(QStringLiteral("Com %1").arg(port));
        fillSettingsLists(settingsLists());
    });
    skip([&] { decode_serie(); });
}

QString tirrro::recordText(const RecordRef& r) {
    return codec::fromBytes(visibleRecord(ctx.get(r)));
}

int tirrro::check1() const {
    return tickValue(*Check1);
}

void tirrro::setCheck1(double value) {
    setTickValue(*Check1, value);
}

// A failing step ends the routine: the controls after it keep what they hold.
void tirrro::decode_serie() {
    const QString port = recordText(rec::drawerPort);
    setCheck1(numericValue(port.left(1)));
    int number = int(numericValue(port.mid(2, 2)));
    if (number < 1 || number > 12) number = 1;
    Combo10->setCurrentIndex(number - 1);

    double wait = numericValue(recordText(rec::drawerPulseMs));
    if (wait < shortestWait || wait > longestWait) wait = usualWait;
    Text11->setText(formatZero(wait));

    const QString opening = recordText(rec::drawerClose);
    const QString closing = recordText(rec::drawerOpen);
    for (int i = 0; i < codeGroups; ++i) {
        Text1.at(i)->setText(opening.mid(i * 3, 3));
        Text1.at(closingBoxes + i)->setText(closing.mid(i * 3, 3));
    }

    ctx.chaine_travail = recordText(rec::drawerSettings);
    if (ctx.chaine_travail.trimmed().isEmpty()) ctx.chaine_travail = defaultPortSettings;
    showSettings(settingsLists(), ctx.chaine_travail, &ctx.chaine_travail);
}

// Each record is written at once. The wait goes as it stands: its range is
// applied on reading only.
void tirrro::sauve_pp() {
    ctx.put(rec::drawerPort,
            codec::toBytes(QStringLiteral("%1:%2")
                               .arg(qAbs(check1()))
                               .arg(Combo10->currentIndex() + 1, 2, 10, QLatin1Char('0'))));
    ctx.put(rec::drawerPulseMs, codec::toBytes(Text11->text()));
    ctx.put(rec::drawerClose, codec::toBytes(groups(Text1, 0)));
    ctx.put(rec::drawerOpen, codec::toBytes(groups(Text1, closingBoxes)));
    ctx.put(rec::drawerSettings, codec::toBytes(listedSettings(settingsLists())));
}

// What fires is what was last saved. "Erreur" at the first failure, and the
// port then stays as it is.
void tirrro::tiroir_indep() {
    try {
        ouvre_fich142(ctx.store, ctx.today());
        const DrawerPulse pulse =
            composeDrawerPulse([this](const RecordRef& r) { return visibleRecord(ctx.get(r)); });
        fireDrawerPulse(*ctx.icc().MSComm1, pulse, ctx.platform);
    } catch (const Failure&) {
        ctx.ui.messageBox(QStringLiteral("Erreur"));
    }
}

void tirrro::bt_prog_Click(int index) {
    switch (index) {
        case 0:  // Valider
            sauve_pp();
            close();
            break;
        case 1:  // Tiroir: the test saves first, and stays saved
            sauve_pp();
            tiroir_indep();
            break;
        case 2:  // Annuler: there is no independent drawer
            if (ctx.form97(QString::fromUtf8(
                               "ON|Confirmez que vous n'utilisez pas de tiroir indépendant ?"),
                           4) != 6)
                break;
            ctx.put(rec::drawerPort, " ");
            close();
            break;
        default:
            break;
    }
}
