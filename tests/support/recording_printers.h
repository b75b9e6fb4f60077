#pragma once
// The system's printers of a test run: the names and the default chosen by
// the test, in its order, and every document kept instead of printed, with
// each text at its place in twips with its font, and each box. A printer
// taken out of the system (unplug) refuses the documents sent to it from then
// on. Text is measured as a printer of the given resolution measures it: by
// default 1200 dots to the inch, the PDF printer of the tests that print for
// real, so that both give the same numbers.
#include <QColor>
#include <QFont>
#include <QRectF>
#include <functional>
#include <vector>

#include "shell/system_printers.h"

class RecordingPrinters : public SystemPrinters {
  public:
    explicit RecordingPrinters(double dpi = 1200) : dpi_(dpi) {}

    struct Mark {
        QRectF twips;  // a text: its top left corner only
        QFont font;
        QString text;  // empty for a box
        QColor colour;
        bool filled = false;
    };
    struct Document {
        QString printer;
        std::vector<Mark> marks;
    };

    // Adds a printer at the end of the system's list; the default one gets
    // the profile entry the spooler writes, "NAME,winspool,Ne00:".
    void add(const QString& name, bool isDefault = false);
    void unplug(const QString& name);

    std::vector<Document> documents;
    std::function<void(const Document&)> received;  // at the end of each document
    // One line: where it went, then every text and box in order.
    static QString describe(const Document& document);

    QStringList names() override { return present_; }
    QString defaultEntry() override { return defaultEntry_; }
    std::unique_ptr<PrinterSurface> open(const QString& deviceName) override;

  private:
    double dpi_;
    QStringList present_;
    QString defaultEntry_;
};
