#include "escpos/render.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>

#include "escpos/glyphs.h"

namespace escpos {

namespace {

constexpr int topMargin = 16, bottomMargin = 16;
constexpr int markerBand = 16;  // room for the tags above a line that has some
constexpr int cutHeight = 28, pulseHeight = 44, noteHeight = 30, refusedHeight = 44;
const QColor markerColour(200, 30, 30);
const QColor remarkColour(90, 90, 110);

QFont labelFont(int pixels, bool bold = false) {
    QFont font(QStringLiteral("Liberation Sans"));
    font.setPixelSize(pixels);
    font.setBold(bold);
    return font;
}

QString hexOf(const QByteArray& bytes) {
    return QString::fromLatin1(bytes.toHex(' ')).toUpper();
}

int hriHeight(const Barcode& b) {
    return b.hriFontB ? 17 : 24;
}

QString markerLabel(const Marker& m) {
    return hexOf(m.bytes().left(8)) + (m.size > 8 ? QStringLiteral(" …") : QString());
}

// The tags of a line's markers, from the top of its band: side by side where
// the bytes came, on a further row when the paper's edge comes first.
std::vector<QRect> markerBoxes(const Line& line, const Sheet& sheet) {
    std::vector<QRect> boxes;
    if (line.markers.empty()) return boxes;
    const QFontMetrics metrics(labelFont(11, true));
    const int right = sheet.paperWidth - 2;
    int row = 0, end = -1;
    for (const Marker& m : line.markers) {
        const int width = std::min(metrics.horizontalAdvance(markerLabel(m)) + 6, right - 2);
        int x = std::max(sheet.leftMargin + m.x, end + 2);
        if (x + width > right && end >= 0) {
            ++row;
            x = sheet.leftMargin + m.x;
        }
        x = std::clamp(x, 2, right - width);
        boxes.emplace_back(x, row * markerBand + 1, width, 14);
        end = x + width - 1;
    }
    return boxes;
}

int markerRows(const Line& line, const Sheet& sheet) {
    const std::vector<QRect> boxes = markerBoxes(line, sheet);
    return boxes.empty() ? 0 : boxes.back().top() / markerBand + 1;
}

int blockHeight(const Block& block, const Sheet& sheet) {
    if (const auto* line = std::get_if<Line>(&block))
        return std::max(line->advance, line->height) + markerRows(*line, sheet) * markerBand;
    if (const auto* picture = std::get_if<Picture>(&block)) return picture->printedHeight();
    if (const auto* b = std::get_if<Barcode>(&block)) {
        if (!b->error.isEmpty()) return refusedHeight;
        int h = b->picture.height() + 8;
        if (b->hriPosition & 1) h += hriHeight(*b) + 4;
        if (b->hriPosition & 2) h += hriHeight(*b) + 4;
        return h;
    }
    if (const auto* cut = std::get_if<Cut>(&block)) return cut->feed + cutHeight;
    if (std::holds_alternative<Pulse>(block)) return pulseHeight;
    if (const auto* page = std::get_if<Page>(&block)) return page->y + page->height + 8;
    return noteHeight;
}

class SheetPainter {
  public:
    SheetPainter(QPainter& p, const Sheet& s) : p_(p), sheet_(s) {}

    // The tags of unknown bytes take a band of their own above the line, so
    // that they hide none of what the printer prints.
    void line(const Line& line, int top) {
        const std::vector<QRect> boxes = markerBoxes(line, sheet_);
        for (size_t i = 0; i < boxes.size(); ++i)
            marker(line.markers[i], boxes[i].translated(0, top));
        if (!boxes.empty()) top += (boxes.back().top() / markerBand + 1) * markerBand;
        const bool upsideDown = std::any_of(line.items.begin(), line.items.end(), [](auto& item) {
            const auto* run = std::get_if<TextRun>(&item);
            return run && run->style.upsideDown;
        });
        if (!upsideDown) return items(line, top + line.height);
        // Upside down, the printer prints the whole line turned by half a
        // turn within the printable width: the line is drawn upright apart,
        // then turned.
        QImage strip(sheet_.paperWidth, line.height, QImage::Format_RGB32);
        strip.fill(Qt::white);
        {
            QPainter sp(&strip);
            SheetPainter(sp, sheet_).items(line, line.height);
        }
        p_.drawImage(
            edge(0), top,
            strip.copy(edge(0), 0, sheet_.printableWidth, line.height).mirrored(true, true));
    }

    void items(const Line& line, int baseline) {
        for (const LineItem& item : line.items) {
            if (const auto* run = std::get_if<TextRun>(&item))
                text(*run, baseline);
            else
                bitImage(std::get<BitImage>(item), baseline);
        }
    }

    void text(const TextRun& run, int baseline) {
        const Style& s = run.style;
        const int w = s.cellWidth(), h = s.cellHeight();
        const int top = baseline - h;
        const QString printed = run.text();
        for (qsizetype i = 0; i < printed.size(); ++i) {
            const int x = edge(run.x + int(i) * run.pitch);
            const QImage& g = glyph(printed.at(i).unicode(), s.fontB, s.bold, s.reverse);
            const QRect cell(x, top, w, h);
            if (s.reverse && run.pitch > w) p_.fillRect(x + w, top, run.pitch - w, h, Qt::black);
            if (s.italic || s.rotated) {
                p_.save();
                if (s.italic) {
                    // Leaning right from the baseline.
                    p_.translate(0, baseline);
                    p_.shear(-0.2, 0);
                    p_.translate(0, -baseline);
                }
                if (s.rotated) {
                    // A quarter turn clockwise within the cell.
                    p_.translate(QPointF(x + w / 2.0, top + h / 2.0));
                    p_.rotate(90);
                    p_.drawImage(QRectF(-h / 2.0, -w / 2.0, h, w), g);
                } else {
                    p_.drawImage(cell, g);
                }
                p_.restore();
            } else if (s.widthScale == 1 && s.heightScale == 1) {
                p_.drawImage(cell.topLeft(), g);
            } else {
                p_.drawImage(cell, g);
            }
            if (s.underline)
                p_.fillRect(x, baseline - s.underline, run.pitch, s.underline, Qt::black);
        }
    }

    void bitImage(const BitImage& image, int baseline) {
        const int top = baseline - image.height();
        for (int col = 0; col < image.columns; ++col)
            for (int row = 0; row < image.dotsPerColumn; ++row)
                if (image.dot(col, row))
                    p_.fillRect(edge(image.x + col * image.scaleX), top + row * image.scaleY,
                                image.scaleX, image.scaleY, Qt::black);
    }

    // A small red tag with the bytes, hung above the line.
    void marker(const Marker& m, const QRect& box) {
        p_.setFont(labelFont(11, true));
        p_.fillRect(box, QColor(255, 228, 228));
        p_.setPen(markerColour);
        p_.drawRect(box.adjusted(0, 0, -1, -1));
        p_.drawText(box, Qt::AlignCenter, markerLabel(m));
    }

    // Dots as sent, each drawn scaleX by scaleY.
    void picture(const Picture& picture, int top) {
        if (picture.width == 0 || picture.height == 0) return;
        QImage image(picture.width, picture.height, QImage::Format_Mono);
        image.setColorTable({qRgb(255, 255, 255), qRgb(0, 0, 0)});
        for (int row = 0; row < picture.height; ++row)
            std::copy_n(picture.rows.constData() + qsizetype(row) * picture.bytesPerRow(),
                        picture.bytesPerRow(), image.scanLine(row));
        p_.drawImage(QRect(edge(picture.x), top, picture.printedWidth(), picture.printedHeight()),
                     image);
    }

    void barcode(const Barcode& b, int top) {
        if (!b.error.isEmpty()) {
            remark(QStringLiteral("%1 %2 refusé : %3").arg(b.command, b.symbology, b.error), top,
                   refusedHeight, markerColour);
            return;
        }
        int y = top + 4;
        const int hriH = hriHeight(b);
        auto hriText = [&](int at) {
            const int cell = b.hriFontB ? 9 : 12;
            const int width = int(b.hri.size()) * cell;
            int x = edge(b.x) + (b.width - width) / 2;
            for (const QChar c : b.hri) {
                p_.drawImage(QPoint(x, at), glyph(c.unicode(), b.hriFontB, false, false));
                x += cell;
            }
        };
        if (b.hriPosition & 1) {
            hriText(y);
            y += hriH + 4;
        }
        p_.drawImage(QPoint(edge(b.x), y), b.picture);
        y += b.picture.height() + 4;
        if (b.hriPosition & 2) hriText(y);
    }

    // The cut as the paper's edge: a dashed line, fully across or with the
    // uncut bridge of a partial cut in the middle.
    void cut(const Cut& c, int top) {
        const int y = top + c.feed + cutHeight / 2;
        QPen pen(remarkColour, 2, Qt::DashLine);
        p_.setPen(pen);
        const int w = sheet_.paperWidth;
        if (c.partial) {
            p_.drawLine(0, y, w / 2 - 24, y);
            p_.drawLine(w / 2 + 24, y, w, y);
        } else {
            p_.drawLine(0, y, w, y);
        }
        p_.setFont(labelFont(13, true));
        const QString label =
            (c.partial ? QStringLiteral("✂ coupe partielle ") : QStringLiteral("✂ coupe totale ")) +
            hexOf(c.bytes);
        const int lw = p_.fontMetrics().horizontalAdvance(label) + 10;
        const QRect box(w - lw - 8, y - 9, lw, 18);
        p_.fillRect(box, Qt::white);
        p_.drawText(box, Qt::AlignCenter, label);
    }

    void pulse(const Pulse& pulse, int top) {
        const QRect box(sheet_.leftMargin, top + 4, std::min(sheet_.printableWidth, 460),
                        pulseHeight - 8);
        p_.setRenderHint(QPainter::Antialiasing, true);
        QPainterPath path;
        path.addRoundedRect(box, 8, 8);
        p_.fillPath(path, QColor(255, 242, 190));
        p_.setPen(QPen(QColor(170, 120, 0), 2));
        p_.drawPath(path);
        p_.setRenderHint(QPainter::Antialiasing, false);
        p_.setFont(labelFont(14, true));
        p_.setPen(QColor(110, 70, 0));
        p_.drawText(box.adjusted(10, 0, -10, 0), Qt::AlignVCenter | Qt::AlignLeft,
                    QStringLiteral("Tiroir : broche %1, %2 ms marche, %3 ms arrêt   (%4)")
                        .arg(pulse.pin)
                        .arg(pulse.onMs)
                        .arg(pulse.offMs)
                        .arg(hexOf(pulse.bytes)));
    }

    void page(const Page& page, int top) {
        const QRect area(edge(page.x), top + page.y, page.width, page.height);
        p_.setPen(QPen(QColor(120, 160, 220), 1, Qt::DotLine));
        p_.drawRect(area.adjusted(0, 0, -1, -1));
        p_.save();
        p_.setClipRect(area);
        for (const PageLine& l : page.lines) {
            p_.save();
            p_.translate(area.topLeft());
            switch (l.direction) {
                case 1:
                    p_.translate(0, page.height);
                    p_.rotate(-90);
                    break;
                case 2:
                    p_.translate(page.width, page.height);
                    p_.rotate(180);
                    break;
                case 3:
                    p_.translate(page.width, 0);
                    p_.rotate(90);
                    break;
                default:
                    break;
            }
            // Items are placed from the start of the line, which in a page
            // is the area's own origin, not the paper's margin.
            p_.translate(-sheet_.leftMargin, 0);
            line(l.line, l.v);
            p_.restore();
        }
        p_.restore();
    }

    void remark(const QString& text, int top, int height, const QColor& colour) {
        const QRect box(sheet_.leftMargin, top + 3, sheet_.printableWidth, height - 6);
        p_.setPen(QPen(colour, 1, Qt::DashLine));
        p_.drawRect(box.adjusted(0, 0, -1, -1));
        p_.setFont(labelFont(13));
        p_.drawText(box.adjusted(6, 0, -6, 0), Qt::AlignVCenter | Qt::AlignLeft,
                    p_.fontMetrics().elidedText(text, Qt::ElideRight, box.width() - 12));
    }

  private:
    int edge(int x) const { return sheet_.leftMargin + x; }

    QPainter& p_;
    const Sheet& sheet_;
};

}  // namespace

namespace {

// A sheet longer than a few metres is drawn up to there, with a note.
constexpr int maxHeight = 32000;

// How many blocks are drawn, and the picture's height.
std::pair<size_t, int> layout(const Sheet& sheet) {
    int height = topMargin + bottomMargin;
    size_t drawn = 0;
    for (; drawn < sheet.blocks.size(); ++drawn) {
        const int h = blockHeight(sheet.blocks[drawn], sheet);
        if (height + h > maxHeight - noteHeight) break;
        height += h;
    }
    if (drawn < sheet.blocks.size()) height += noteHeight;
    return {drawn, height};
}

}  // namespace

int sheetHeight(const Sheet& sheet) {
    return layout(sheet).second;
}

QImage renderSheet(const Sheet& sheet) {
    const auto [drawn, height] = layout(sheet);
    const bool cut = drawn < sheet.blocks.size();
    QImage image(sheet.paperWidth, height, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter p(&image);
    SheetPainter painter(p, sheet);
    int y = topMargin;
    for (size_t i = 0; i < drawn; ++i) {
        const Block& block = sheet.blocks[i];
        if (const auto* line = std::get_if<Line>(&block))
            painter.line(*line, y);
        else if (const auto* b = std::get_if<Barcode>(&block))
            painter.barcode(*b, y);
        else if (const auto* c = std::get_if<Cut>(&block))
            painter.cut(*c, y);
        else if (const auto* pulse = std::get_if<Pulse>(&block))
            painter.pulse(*pulse, y);
        else if (const auto* page = std::get_if<Page>(&block))
            painter.page(*page, y);
        else if (const auto* note = std::get_if<Note>(&block))
            painter.remark(note->text, y, noteHeight, remarkColour);
        else if (const auto* picture = std::get_if<Picture>(&block))
            painter.picture(*picture, y);
        y += blockHeight(block, sheet);
    }
    if (cut)
        painter.remark(QStringLiteral("… la suite de ce ticket (%1 éléments) n'est pas dessinée")
                           .arg(sheet.blocks.size() - drawn),
                       y, noteHeight, markerColour);
    return image;
}

}  // namespace escpos
