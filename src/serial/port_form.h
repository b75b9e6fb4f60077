#pragma once
// What the port scan (Param_serie) and the port notebook (Param_seriel)
// share: the four settings lists and the accent list, the twelve port boxes
// and their colours, the test print with its text, and the question asked
// after it. How the two screens differ in their controls is told in one
// place, their PortFormVariant; what each does with a click stays in its own
// class.
#include <QStringList>
#include <map>
#include <memory>

#include "shell/screen.h"
#include "shell/settings_lists.h"

class QComboBox;
class QLineEdit;
class QTimer;
class MSComm;
class Shape;

struct PortFormVariant {
    QString name;           // "Param_serie", "Param_seriel"
    QStringList bar;        // definitions of the bar's slots
    QString instructions;   // Label9
    QString accentCaption;  // Label19
    bool scan = false;      // Label10/Label11, Frame1 with "OK", Shape6, Timer1, Timer2
    bool notebook = false;  // Text1 (the printer's name) and Text8(0..11) (its codes)
};

class PortForm : public Screen {
    Q_OBJECT
  public:
    PortForm(Context& ctx, PortFormVariant variant);
    ~PortForm() override;

    // The controls, by their names in the suite.
    QComboBox* Combo1 = nullptr;   // speed
    QComboBox* Combo2 = nullptr;   // parity
    QComboBox* Combo3 = nullptr;   // data bits
    QComboBox* combo4 = nullptr;   // stop bits
    QComboBox* Combo5 = nullptr;   // accent mode, from the list only
    std::map<int, Shape*> Shape1;  // 0 is the template of the boxes
    std::map<int, ClickLabel*> Label8;
    QWidget* Frame1 = nullptr;      // the "OK" of a scan
    QWidget* Frame2 = nullptr;      // the test print
    QWidget* Frame3 = nullptr;      // the waiting texts
    Shape* Shape6 = nullptr;        // the lamp that blinks during a scan
    ClickLabel* Label11 = nullptr;  // over the scan caption
    ClickLabel* Label13 = nullptr;  // over the "OK" picture
    ClickLabel* Label14 = nullptr;  // over the test print caption
    QTimer* Timer1 = nullptr;
    QTimer* Timer2 = nullptr;
    QLineEdit* Text1 = nullptr;
    std::map<int, QLineEdit*> Text8;
    MSComm& MSComm1() { return *port_; }

    // Form state.
    qint16 port_courant = 0;
    qint16 port_en_erreur = 0;
    QString chaine_recue;

    // A click on a port box.
    virtual void Label8_Click(int index) = 0;

  protected:
    // The first steps of Form_Load: placed full screen, framed, the bar.
    void fitAndDress();
    // The five lists emptied and filled again; the accent list on its first entry.
    void fillLists();
    // Shape1(i) and Label8(i), 1 to 12, made from their templates when the
    // screen has none yet, in one row at equal distance.
    void makePortBoxes();
    // The four settings lists from the PortSettings text in chaine_travail,
    // by the field rule; chaine_travail keeps what the rule leaves of it.
    void showSettings();
    SettingsLists settingsLists() const { return {Combo1, Combo2, Combo3, combo4}; }
    // The selected box framed dark red on light orange, the others grey on white.
    void paintBoxes(int selected);
    // The port steps of test_impression: the accent mode from Combo5, the
    // port opened, given the lists' settings (reglages_serie), the test text
    // naming printedPort, closed. False at the first step that fails; the
    // port is then left as it stands.
    bool printTestText(int port, int printedPort);
    // The question after a test print; when the answer is not yes, the hint
    // about the settings. True for yes.
    bool askGoodPrint(int port);
    // The message of a test print that failed by hand.
    void tellWrongPort(int port);
    // Connects a click area to its action, inside the screen's guard.
    void onClick(ClickLabel* area, std::function<void()> action);
    // A timer's interval as the suite sets it: 0 stops it.
    static void setInterval(QTimer* timer, int ms);

  private:
    void buildControls();
    const PortFormVariant variant_;
    std::unique_ptr<MSComm> port_;
};
