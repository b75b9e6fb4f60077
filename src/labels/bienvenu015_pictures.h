#pragma once
// Our own picture of each invoice format, for a till that lacks the suite's
// picture files: a ticket, and A4 pages cut in one, two or three, on white
// paper with drawn frames or over a coloured background.
#include <QPixmap>
#include <QSize>

QPixmap drawnInvoiceFormat(int format, QSize size);
