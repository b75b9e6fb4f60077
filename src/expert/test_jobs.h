#pragma once
// The development tests of the expert screen: barcodes, bit images and
// cheques on the slip station. Each is a fixed job, composed here without
// touching any device; the screen sends it.
#include <QDate>
#include <QStringList>

#include "print/job.h"
#include "print/test_ticket.h"

namespace test_jobs {

// Serial jobs (the screen opens and closes the port around them).
Job code_barres(const TicketFields& f);
Job ean_serie(const TicketFields& f);
Job graphique_serie(const TicketFields& f);
// USB jobs: Translated writes go by envoi_usb, Raw ones by envoi_usb_brut.
Job ean_usb();
Job graphique_usb();

// Cheques 1 to 5, dated today where they print a date.
Job cheque(int number, const QDate& today);

// Cheque 5's page: 16 lines of 116 columns, the stub (47) then the body (69).
QList<QByteArray> chequePage(const QDate& today);

}  // namespace test_jobs
