#pragma once
// ESC/POS bytes in, the document a printer makes of them out. Bytes may come
// in pieces of any size, as they do from a serial line: a command cut in two
// waits for the rest. Whatever the bytes, the decoder makes progress, holds
// no more than the bytes given, and never stops on an unknown command.
#include <QByteArray>
#include <QByteArrayView>

#include "escpos/document.h"
#include "escpos/line_builder.h"
#include "escpos/pictures.h"
#include "escpos/symbols.h"

namespace escpos {

class Decoder {
  public:
    // Paper of 80 or 58 mm on the roll.
    explicit Decoder(int paperMillimetres = 80);

    void feed(QByteArrayView bytes);
    // The end of the data: a command left incomplete is shown as such, a
    // line or a page never printed is shown with a note.
    void finish();

    const Document& document() const { return doc_; }
    // Sheets finished so far (cut or ejected) are at the front of the
    // document in the order they were started; this counts them all.
    int finishedSheets() const;

  private:
    // How many bytes the command at the front of data takes; when the data
    // is too short to hold it, minus the bytes it needs at least.
    qsizetype commandLength(QByteArrayView data) const;
    void execute(QByteArrayView command);
    void escape(QByteArrayView c);
    void groupSeparator(QByteArrayView c);
    void fileSeparator(QByteArrayView c);
    void realTime(QByteArrayView c);
    void control(unsigned char byte, QByteArrayView c);

    void reset();
    Sheet& sheet();
    void addBlock(Block block);
    void printLine(int advance = -1);
    void feedDots(int dots);
    void cut(bool partial, int feed, QByteArrayView bytes);
    void pulse(int pin, int onMs, int offMs, QByteArrayView bytes);
    void barcode(int system, const QByteArray& data);
    void symbolFunction(QByteArrayView c);  // GS ( k
    void placeSymbol(Barcode symbol);
    void bitImage(QByteArrayView c);
    void selectPaper(int n);
    void ejectSlip(QByteArrayView bytes);
    void mark(QByteArrayView bytes, const QString& why);

    // Pictures, and the requests that print nothing: true when c was one.
    bool pictureCommand(QByteArrayView c);
    void rasterImage(QByteArrayView c);
    void graphics(QByteArrayView parameters, QByteArrayView c);
    void defineBitImage(QByteArrayView c);
    void printBitImage(QByteArrayView c);
    void defineNvBitImages(QByteArrayView c);
    void printNvBitImage(QByteArrayView c);
    void printPicture(Picture picture);
    bool requestCommand(QByteArrayView c);
    bool kanjiCommand(QByteArrayView c);
    void dropBlankSheet();
    void request(QByteArrayView c, const QString& what);

    // Page mode.
    void enterPageMode();
    void leavePageMode();
    void setPageArea(QByteArrayView c);
    void setDirection(QByteArrayView c);
    void pageLineDone(int advance);
    void printPage(const QString& end, bool keep);
    void startPageLine();
    int pageLineLength() const;
    // A picture or a symbol stands on a line of its own: in page mode it is
    // only noted (false); otherwise the text before it is printed first.
    bool startOwnLine(const QString& pageModeNote);
    // Where a block `width` dots wide starts, in the justification that holds.
    int justifiedX(int width) const;
    int printableWidth() const;

    int dotsX(int units) const;
    int dotsY(int units) const;  // at most a metre
    int unitsY(int units) const;

    int paperMillimetres_;
    Document doc_;
    int rollSheet_ = -1, slipSheet_ = -1;
    QByteArray pending_;
    qsizetype needed_ = 0;  // bytes the command at the front waits for

    // Printer state.
    Style style_;
    LineBuilder line_;
    int lineSpacing_ = 30;
    int justification_ = 0;
    int rightSpacing_ = 0;
    int leftMargin_ = 0;
    int areaWidth_ = 0;
    QList<int> tabs_;  // dots from the start of the line
    int unitX_ = dotsPerInch, unitY_ = dotsPerInch;
    bool slipSelected_ = false;
    // Barcode settings.
    int barModule_ = 3, barHeight_ = 162, hriPosition_ = 0;
    bool hriFontB_ = false;
    SymbolSettings symbols_;
    PictureStore pictures_;
    // Page mode.
    bool pageMode_ = false;
    int direction_ = 0;
    Page page_;
    int pageV_ = 0;
};

}  // namespace escpos
