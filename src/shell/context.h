#pragma once
// The running context: the shared variables of the suite under their own
// names, the record store, the platform and the interaction. One per run,
// handed to every screen; there is no other global state.
#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <array>
#include <chrono>
#include <memory>

#include "print/mscomm.h"
#include "print/usb_family.h"
#include "store/record_store.h"
#include "store/records.h"

struct Icc;
struct Icr;
class PrinterObject;
class SystemPrinters;

// What the tool reaches outside itself.
class Platform {
  public:
    virtual ~Platform() = default;
    virtual std::unique_ptr<MSComm> newPort() = 0;
    virtual UsbLibraries& usb() = 0;
    virtual QDateTime now() const = 0;
    // Starts the browser with the page; false when it cannot be started.
    virtual bool openBrowser(const QString& browserPath, const QString& page) = 0;
    // Waits that long, asleep on a monotonic clock: no event runs meanwhile,
    // and the wait ends whatever the time of day does (midnight included).
    virtual void pause(std::chrono::milliseconds length) = 0;
    // The system's printers.
    virtual SystemPrinters& printers() = 0;
};

// How the tool speaks with its user and runs its screens.
class Interaction {
  public:
    virtual ~Interaction() = default;
    // form97, modally, driven by msg_dialogue and retour_dialogue of the context.
    virtual void showDialog() = 0;
    // The plain system message box with one OK button ("Erreur de port").
    virtual void messageBox(const QString& text) = 0;
    // The info bubble (infoobulle): texte and mode as bulle() takes them.
    virtual void bulle(const QString& texte, const QString& mode) = 0;
    // Shows a screen by its name; false when this build has no such screen.
    virtual bool showScreen(const QString& name, bool modal) = 0;
    // Lets pending events run (timers, paints, the port's events).
    virtual void letEventsRun() = 0;
    // Closes every open file and ends the program at once; never returns.
    [[noreturn]] virtual void endProgram() = 0;
    // A failure that no handler traps: the system's run-time error box, then
    // the end of the program.
    [[noreturn]] virtual void fatal(const QString& what) = 0;
};

class Context {
  public:
    Context(Platform& platform, Interaction& ui);
    ~Context();

    Platform& platform;
    Interaction& ui;
    RecordStore store;

    // Shared variables.
    QString chaine_travail;
    QString msg_dialogue;
    int retour_dialogue = 0;
    qint16 fichier_perif = 20;
    qint16 port_serie = 0;
    QString reglages_serie;
    qint16 mode_accent = 0;
    qint16 mode_accent_cuisine = 0;
    qint16 famille_usb = 0;
    qint16 format_facture = 0;
    // The article sold by weight and its unit price, filled by whoever shows
    // the weight keypad; nothing in this tool fills them.
    QString fiche_article = QString(450, QLatin1Char(' '));
    double prix_unitaire = 0;
    QByteArray switchs = QByteArray(1000, ' ');
    std::array<double, 7> couleur_theme{};  // 1 to 6 are used

    // The system's printers as the printer choice keeps them (choix_printer):
    // up to 21 device names in the system's order (an empty one is no
    // entry) and the count of the last enumeration.
    std::array<QString, 21> tab_imprimantes;
    qint16 nb_imprimantes = 0;
    // The current printer: the default printer until another one is made
    // current (choix_imprimante).
    PrinterObject& Printer();
    void setPrinter(std::unique_ptr<PrinterObject> printer);

    // The hidden banks, made the first time they are touched.
    Icc& icc();
    Icr& icr();

    // Records by their entry in the table of records.
    int fileNumber(const RecordRef& r) const { return fileNumberOf(r.file, fichier_perif); }
    QByteArray get(const RecordRef& r) { return store.get(fileNumber(r), r.number); }
    void put(const RecordRef& r, QByteArrayView bytes) {
        store.put(fileNumber(r), r.number, bytes);
    }

    // The prompt dialog's calling sequence: assign both, show, read the reply.
    int form97(const QString& message, int kind);
    // bulle(texte, mode) of the shell.
    void bulle(const QString& texte, const QString& mode) { ui.bulle(texte, mode); }
    QDate today() const { return platform.now().date(); }

  private:
    std::unique_ptr<Icc> icc_;
    std::unique_ptr<Icr> icr_;
    std::unique_ptr<PrinterObject> printer_;
};
