#pragma once
// What the ticket printer's expert screen (Form1) and the kitchen printer's
// screen (nox_sei2) share: the same fields bound to the same record numbers,
// the same layouts of the code strings, the same opening of the port and the
// same handler around a test print. How each screen differs is told in one
// place, its PrinterFormVariant; everything else stands here once.
#include <QStringList>
#include <map>
#include <vector>

#include "print/job.h"
#include "print/test_ticket.h"
#include "shell/screen.h"
#include "store/records.h"

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLineEdit;
class QPushButton;
class QRadioButton;
class MSComm;

struct PrinterFormVariant {
    QString name;             // the screen's name: "Form1", "nox_sei2"
    QString caption;          // the window's title
    QStringList bar;          // definitions of the bar's slots
    QStringList samples;      // captions of Label1(0) to Label1(4)
    bool drawer = false;      // Check111 and Text1(0..10), records 700 to 712
    bool usb = false;         // hidden Check2 from record 81, hidden Label13 bound to record 160
    QString heading;          // caption of a visible Label13 when the screen has no USB
    bool vendorLink = false;  // Label7 beside the picture, a link to the vendor's page
    // Where the printer's records are: the station's file for the ticket
    // printer, file number 20 (reopened on the kitchen's file) for the kitchen.
    RecordFile printerFile = RecordFile::Peripheral;
};

class PrinterForm : public Screen {
    Q_OBJECT
  public:
    PrinterForm(Context& ctx, PrinterFormVariant variant);

    const PrinterFormVariant& variant() const { return variant_; }

    // The controls, by their names in the suite.
    std::map<int, QLineEdit*> Text2, Text8, Text9, Text6, Text1;
    std::map<int, QRadioButton*> Option1;  // 1 to 12
    std::map<int, ClickLabel*> Label1;     // the sample lines
    QLineEdit* Text111 = nullptr;
    QLineEdit* Text4 = nullptr;
    QComboBox* Combo1 = nullptr;
    QCheckBox* Check1 = nullptr;
    QCheckBox* Check111 = nullptr;  // only with a drawer
    QCheckBox* Check2 = nullptr;    // only with USB; holds 0, 1 or 2
    QLabel* Label13 = nullptr;
    ClickLabel* Image1 = nullptr;
    ClickLabel* Label7 = nullptr;
    std::map<QString, QPushButton*> commands;  // "Command3", "Command5(1)", ...

    // Check2 as the suite's tick box: 0, 1 or 2 (grey); other values fail.
    int check2() const;
    void setCheck2(int value);

    // The fields as they stand, for the test ticket and the test jobs.
    TicketFields ticketFields() const;

    // Form_Load's common part: the window, its picture, the bar, the accent
    // list. The screen then opens its file and calls loadRecords().
    void fitAndDress();
    // Fills the fields from the records of the screen's file, in the order of
    // the load; every failing step is skipped.
    void loadRecords();
    // Writes the fields in the order of the save (sauve_parametres,
    // sauve_cuisine); a failure goes up to the caller.
    void saveRecords();

    // The opening of a serial action: the selected Option1 sets port_serie
    // (none selected keeps it), then the port number, the open, and only then
    // the settings. Throws Failure at the first step that fails.
    void openPort(MSComm& port);
    // A test print on a serial port with its one handler: "Erreur de port" once
    // and the action left at the failing step, the port left as it stands.
    // The kitchen's send adds its line feeds and empties chaine_travail.
    void printOnSerial(MSComm& port, const Job& job, int mode, bool kitchen);

    // Every box of the screen gets one blank; a drop-down list keeps its entry.
    void efface_zones();

    // A full button of the screen's model area, at a place in pixels.
    QPushButton* addCommand(const QString& name, const QString& caption, const QRect& where);
    // A blue model button, in the column of model buttons at row `row`.
    QPushButton* addModelButton(const QString& name, const QString& caption, int row);

  protected:
    // Runs a statement of an action that has no handler of its own: a failure
    // there ends the program with the system's run-time error.
    void fatalOnFailure(const std::function<void()>& statement);

  private:
    void buildControls();
    QLineEdit* addBox(std::map<int, QLineEdit*>& array, const QString& name, int index,
                      QWidget* parent, const QRect& where, bool green);
    QStringList texts(const std::map<int, QLineEdit*>& array, int first, int count) const;
    void setTexts(std::map<int, QLineEdit*>& array, int first, const QStringList& values);
    // The printer's records of the table, in the screen's own file.
    RecordRef own(const RecordRef& r) const;
    // The record as it stands on disk, zero bytes included: what an update in
    // place starts from.
    QByteArray stored(const RecordRef& r);
    // The record as a box shows it: cut at its first zero byte.
    QByteArray record(const RecordRef& r);
    void store(const RecordRef& r, QByteArrayView bytes);
    void loadSettings();
    void saveSettings();
    void loadPort();
    void savePort();
    void savePlain(const RecordRef& r, const QString& text);

    PrinterFormVariant variant_;
};
