#pragma once
// The system's printers as a platform service: their names in the system's
// order, the default printer's entry, and the pages of a document on one of
// them. What a page receives is in printer dots; the suite's printer object
// (printer_object.h) turns its twips into dots at the page's resolution.
#include <QColor>
#include <QFont>
#include <QFontMetricsF>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <QStringList>
#include <memory>

// One document on one printer, from its first mark to its end. The document
// is begun at the first mark and handed to the system by endDoc(); a surface
// that received no mark sends nothing. Every operation throws Failure when
// the printer cannot take the document (gone, refused, no system at all).
class PrinterSurface {
  public:
    virtual ~PrinterSurface() = default;
    // Dots per inch, the same across and down.
    virtual double dpi() const = 0;
    // The font's measures on this printer, in dots.
    virtual QFontMetricsF metrics(const QFont& font) = 0;
    // A text whose cell's top left corner stands at `topLeft`.
    virtual void text(QPointF topLeft, const QFont& font, const QString& text) = 0;
    virtual void box(const QRectF& area, const QColor& colour, bool filled) = 0;
    virtual void endDoc() = 0;
};

class SystemPrinters {
  public:
    virtual ~SystemPrinters() = default;
    // The device names of the system's printers, in the system's order.
    virtual QStringList names() = 0;
    // The default printer as the system's profile tells it: on Windows the
    // "Device" entry of the "windows" section ("name,driver,port"), elsewhere
    // the name alone; empty when the system has none.
    virtual QString defaultEntry() = 0;
    // A new document on the named printer. Throws Failure when the system
    // has no such printer (any more).
    virtual std::unique_ptr<PrinterSurface> open(const QString& deviceName) = 0;
};
