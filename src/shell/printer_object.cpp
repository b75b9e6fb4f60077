#include "shell/printer_object.h"

#include "shell/colours.h"
#include "shell/system_printers.h"
#include "store/failure.h"

PrinterObject::PrinterObject(SystemPrinters& system, QString deviceName)
    : system_(system), deviceName_(std::move(deviceName)), font_(QStringLiteral("Arial")) {
    font_.setPointSizeF(10);
}

PrinterObject::~PrinterObject() = default;

void PrinterObject::setFontName(const QString& name) {
    if (name.trimmed().isEmpty()) throw Failure(QStringLiteral("Valeur de propriété non valide"));
    font_.setFamilies({name});
}

void PrinterObject::setFontSize(double points) {
    if (!(points > 0)) throw Failure(QStringLiteral("Valeur de propriété non valide"));
    font_.setPointSizeF(points);
}

// The document's surface, opened at the first need: a printer that has left
// the system fails here, at the first measure or mark of a document, and
// every later one of that document fails at once without asking again.
PrinterSurface& PrinterObject::surface() {
    if (refused_) throw Failure(QStringLiteral("Erreur d'imprimante"));
    if (!surface_) {
        refused_ = true;
        surface_ = system_.open(deviceName_);
        refused_ = false;
    }
    return *surface_;
}

double PrinterObject::dots(double twips) {
    return twips * surface().dpi() / twipsPerInch;
}

double PrinterObject::TextWidth(const QString& text) {
    PrinterSurface& page = surface();
    double widest = 0;
    for (const QString& line : text.split(QLatin1Char('\n')))
        widest = qMax(widest, page.metrics(font_).horizontalAdvance(line));
    return widest * twipsPerInch / page.dpi();
}

double PrinterObject::TextHeight(const QString& text) {
    PrinterSurface& page = surface();
    const auto lines = text.count(QLatin1Char('\n')) + 1;
    return double(lines) * page.metrics(font_).lineSpacing() * twipsPerInch / page.dpi();
}

void PrinterObject::Print(const QString& text) {
    const double lineHeight = TextHeight(QString());
    if (!text.isEmpty()) surface().text(QPointF(dots(CurrentX), dots(CurrentY)), font_, text);
    CurrentX = 0;
    CurrentY += lineHeight;
}

void PrinterObject::Line(double x1, double y1, double x2, double y2, double colour, bool filled) {
    const QRectF area(QPointF(dots(qMin(x1, x2)), dots(qMin(y1, y2))),
                      QPointF(dots(qMax(x1, x2)), dots(qMax(y1, y2))));
    surface().box(area, colourFromNumber(colour), filled);
    CurrentX = x2;
    CurrentY = y2;
}

void PrinterObject::EndDoc() {
    CurrentX = 0;
    CurrentY = 0;
    refused_ = false;
    if (!surface_) return;
    // The document is over whatever the system answers.
    const std::unique_ptr<PrinterSurface> done = std::move(surface_);
    done->endDoc();
}
