#pragma once
// The document as stable, readable text: one line of text per printed line,
// with the style, code table and position of each run, and the barcodes,
// images, cuts, pulses, pages and unknown bytes where they came.
#include <QString>

#include "escpos/document.h"

namespace escpos {

QString dump(const Document& doc);
QString dumpSheet(const Sheet& sheet, int number);
// One line for a request or a feed that printed nothing.
QString dumpRequest(const Request& request);

}  // namespace escpos
