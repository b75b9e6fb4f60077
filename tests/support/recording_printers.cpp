#include "support/recording_printers.h"

#include <QPaintDevice>

#include "store/failure.h"

namespace {

// A page of no size that only tells its resolution, for the font measures.
class MeasuringDevice : public QPaintDevice {
  public:
    explicit MeasuringDevice(int dpi) : dpi_(dpi) {}
    QPaintEngine* paintEngine() const override { return nullptr; }

  protected:
    int metric(PaintDeviceMetric m) const override {
        switch (m) {
            case PdmDpiX:
            case PdmDpiY:
            case PdmPhysicalDpiX:
            case PdmPhysicalDpiY:
                return dpi_;
            case PdmDepth:
                return 32;
            default:
                return QPaintDevice::metric(m);
        }
    }

  private:
    int dpi_;
};

class RecordingSurface : public PrinterSurface {
  public:
    RecordingSurface(RecordingPrinters& system, const QString& name, double dpi)
        : system_(system), device_(int(dpi)), dpi_(dpi) {
        document_.printer = name;
    }
    double dpi() const override { return dpi_; }
    QFontMetricsF metrics(const QFont& font) override { return QFontMetricsF(font, &device_); }
    void text(QPointF topLeft, const QFont& font, const QString& text) override {
        check();
        document_.marks.push_back({QRectF(twips(topLeft), QSizeF()), font, text, {}, false});
    }
    void box(const QRectF& area, const QColor& colour, bool filled) override {
        check();
        document_.marks.push_back(
            {QRectF(twips(area.topLeft()), twips(area.bottomRight())), {}, {}, colour, filled});
    }
    void endDoc() override {
        if (document_.marks.empty()) return;
        check();
        system_.documents.push_back(document_);
        if (system_.received) system_.received(document_);
    }

  private:
    void check() const {
        if (!system_.names().contains(document_.printer))
            throw Failure(QStringLiteral("Erreur d'imprimante"));
    }
    QPointF twips(QPointF dots) const { return dots * 1440.0 / dpi_; }

    RecordingPrinters& system_;
    MeasuringDevice device_;
    double dpi_;
    RecordingPrinters::Document document_;
};

QString style(const QFont& font) {
    QString s = QStringLiteral("\"%1\" %2").arg(font.families().value(0)).arg(font.pointSizeF());
    if (font.bold()) s += QStringLiteral(" bold");
    if (font.italic()) s += QStringLiteral(" italic");
    if (font.underline()) s += QStringLiteral(" underline");
    return s;
}

QString point(QPointF p) {
    return QStringLiteral("%1,%2").arg(qRound(p.x())).arg(qRound(p.y()));
}

}  // namespace

void RecordingPrinters::add(const QString& name, bool isDefault) {
    present_ << name;
    if (isDefault) defaultEntry_ = name + QStringLiteral(",winspool,Ne00:");
}

void RecordingPrinters::unplug(const QString& name) {
    present_.removeAll(name);
}

std::unique_ptr<PrinterSurface> RecordingPrinters::open(const QString& deviceName) {
    if (!present_.contains(deviceName)) throw Failure(QStringLiteral("Erreur d'imprimante"));
    return std::make_unique<RecordingSurface>(*this, deviceName, dpi_);
}

QString RecordingPrinters::describe(const Document& document) {
    QStringList marks;
    for (const Mark& m : document.marks) {
        if (m.text.isEmpty())
            marks << QStringLiteral("box %1 %2%3 colour %4")
                         .arg(point(m.twips.topLeft()), point(m.twips.bottomRight()),
                              m.filled ? QStringLiteral(" filled") : QString(), m.colour.name());
        else
            marks << QStringLiteral("text %1 %2 \"%3\"")
                         .arg(point(m.twips.topLeft()), style(m.font),
                              QString(m.text).replace(QLatin1Char('"'), QStringLiteral("\\\"")));
    }
    return QStringLiteral("printed on \"%1\": %2").arg(document.printer, marks.join(" | "));
}
