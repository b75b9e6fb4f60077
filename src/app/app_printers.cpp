#include "app/app_printers.h"

#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>

#include "store/failure.h"

namespace {

Failure printerError() {
    return Failure(QStringLiteral("Erreur d'imprimante"));
}

class QtPrinterSurface : public PrinterSurface {
  public:
    explicit QtPrinterSurface(const QString& deviceName) : printer_(QPrinter::HighResolution) {
        if (deviceName.isEmpty()) throw printerError();
        printer_.setPrinterName(deviceName);
        // Qt quietly takes another printer for a name it does not know: a
        // printer that has left the system must fail, not print elsewhere.
        if (printer_.printerName() != deviceName) throw printerError();
        printer_.setDocName(QStringLiteral("kalvo-periph"));
    }

    double dpi() const override { return printer_.resolution(); }

    QFontMetricsF metrics(const QFont& font) override { return QFontMetricsF(font, &printer_); }

    void text(QPointF topLeft, const QFont& font, const QString& text) override {
        QPainter& page = painter();
        page.setFont(font);
        page.drawText(topLeft + QPointF(0, metrics(font).ascent()), text);
    }

    void box(const QRectF& area, const QColor& colour, bool filled) override {
        QPainter& page = painter();
        if (filled) {
            page.fillRect(area, colour);
        } else {
            page.setPen(colour);
            page.setBrush(Qt::NoBrush);
            page.drawRect(area);
        }
    }

    void endDoc() override {
        if (painter_.isActive() && !painter_.end()) throw printerError();
    }

  private:
    // The document begins at its first mark.
    QPainter& painter() {
        if (!painter_.isActive() && !painter_.begin(&printer_)) throw printerError();
        return painter_;
    }

    QPrinter printer_;
    QPainter painter_;
};

}  // namespace

QStringList AppPrinters::names() {
    return QPrinterInfo::availablePrinterNames();
}

std::unique_ptr<PrinterSurface> AppPrinters::open(const QString& deviceName) {
    return std::make_unique<QtPrinterSurface>(deviceName);
}
