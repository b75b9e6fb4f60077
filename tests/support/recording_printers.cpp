#include "support/recording_printers.h"

#include <QImage>

#include "store/failure.h"

namespace {

class RecordingSurface : public PrinterSurface {
  public:
    RecordingSurface(RecordingPrinters& system, const QString& name, double dpi)
        : system_(system), page_(1, 1, QImage::Format_Mono), dpi_(dpi) {
        // A page of one dot that only tells its resolution, for the measures.
        page_.setDotsPerMeterX(qRound(dpi / 0.0254));
        page_.setDotsPerMeterY(qRound(dpi / 0.0254));
        document_.printer = name;
    }
    double dpi() const override { return dpi_; }
    QFontMetricsF metrics(const QFont& font) override { return QFontMetricsF(font, &page_); }
    void text(QPointF topLeft, const QFont& font, const QString& text) override {
        mark({QRectF(twips(topLeft), QSizeF()), font, text, {}, false});
    }
    void box(const QRectF& area, const QColor& colour, bool filled) override {
        mark({QRectF(twips(area.topLeft()), twips(area.bottomRight())), {}, {}, colour, filled});
    }
    void endDoc() override {
        if (document_.marks.empty()) return;
        check();
        system_.documents.push_back(document_);
        if (system_.received) system_.received(document_);
    }

  private:
    void mark(const RecordingPrinters::Mark& m) {
        check();
        document_.marks.push_back(m);
    }
    void check() const {
        if (!system_.names().contains(document_.printer))
            throw Failure(QStringLiteral("Erreur d'imprimante"));
    }
    QPointF twips(QPointF dots) const { return dots * 1440.0 / dpi_; }

    RecordingPrinters& system_;
    QImage page_;
    double dpi_;
    RecordingPrinters::Document document_;
};

QString point(QPointF p) {
    return QStringLiteral("%1,%2").arg(qRound(p.x())).arg(qRound(p.y()));
}

QString describe(const RecordingPrinters::Mark& m) {
    if (m.text.isEmpty())
        return QStringLiteral("box %1 %2%3 colour %4")
            .arg(point(m.twips.topLeft()), point(m.twips.bottomRight()),
                 m.filled ? QStringLiteral(" filled") : QString(), m.colour.name());
    QString s = QStringLiteral("text %1 \"%2\" %3")
                    .arg(point(m.twips.topLeft()), m.font.families().value(0))
                    .arg(m.font.pointSizeF());
    for (const auto& [on, name] : {std::pair{m.font.bold(), "bold"},
                                   {m.font.italic(), "italic"},
                                   {m.font.underline(), "underline"}})
        if (on) s += QLatin1Char(' ') + QLatin1String(name);
    return s + QStringLiteral(" \"%1\"").arg(QString(m.text).replace('"', QStringLiteral("\\\"")));
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
    for (const Mark& m : document.marks) marks << ::describe(m);
    return QStringLiteral("printed on \"%1\": %2").arg(document.printer, marks.join(" | "));
}
