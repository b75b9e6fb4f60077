#pragma once
// The suite's printer object: the current printer with its font, its current
// position and its text measures, where the screens print their test tickets.
// Positions and measures are in twips (1440 to the inch) from the top left
// corner of the printable area, turned into dots at the printer's own
// resolution, so that a ticket lands in the same place on any driver.
#include <QFont>
#include <QString>
#include <memory>

class PrinterSurface;
class SystemPrinters;

inline constexpr double twipsPerInch = 1440.0;

class PrinterObject {
  public:
    PrinterObject(SystemPrinters& system, QString deviceName);
    ~PrinterObject();

    const QString& DeviceName() const { return deviceName_; }

    // The font. An empty name or a size that is not above 0 is refused
    // (Failure) and the font stays as it was.
    void setFontName(const QString& name);
    void setFontSize(double points);
    void setFontBold(bool on) { font_.setBold(on); }
    void setFontItalic(bool on) { font_.setItalic(on); }
    void setFontUnderline(bool on) { font_.setUnderline(on); }
    const QFont& font() const { return font_; }

    double CurrentX = 0;
    double CurrentY = 0;

    // Measures of a text in the current font, in twips; the height is one
    // line's, leading included.
    double TextWidth(const QString& text);
    double TextHeight(const QString& text);

    // Prints the text at the current position, then goes to the next line:
    // CurrentX back to 0, CurrentY down by one line.
    void Print(const QString& text = QString());

    // The suite's Line in its box form: the rectangle between two corners,
    // a solid block when filled. The colour is a 24-bit number in blue,
    // green, red order. The current position moves to the second corner.
    void Line(double x1, double y1, double x2, double y2, double colour, bool filled);

    // Hands the document to the system; the next mark begins a new one.
    // A document with no mark sends nothing.
    void EndDoc();

  private:
    PrinterSurface& surface();
    double dots(double twips);

    SystemPrinters& system_;
    QString deviceName_;
    QFont font_;
    std::unique_ptr<PrinterSurface> surface_;
    bool refused_ = false;  // the system refused this document
};
