#pragma once
// The six invoice formats of the sales program, by the value that
// format_facture and record 80 hold: the picture that shows each, the file of
// the suite that picture comes from, its frame and its explaining text.
#include <QtGlobal>

struct InvoiceFormat {
    qint16 value;
    const char* image;  // the picture control; a click on it chooses the format
    const char* file;   // the suite's picture, in the data directory
    const char* textControl;
    const char* text;  // UTF-8
    bool fullPage;     // a full A4 page has no margin to align
    bool graphic;      // printed over the background picture fonfact.gif
};

inline constexpr InvoiceFormat invoiceFormats[] = {
    {0, "Image5", "kl_img_025.gif", "Label4",
     "Format à choisir si vous n'utilisez qu'une imprimante de caisse format ticket.", false,
     false},
    {1, "Image6", "kl_img_027.gif", "Label3(2)",
     "Impression au format demi-A4 (demi-page) sur papier blanc, les cadres sont dessinés par "
     "l'ordinateur",
     false, false},
    {2, "Image3", "kl_img_026.gif", "Label3(1)",
     "Impression au format A4 sur papier blanc, les cadres sont dessinés par l'ordinateur", true,
     false},
    {3, "Image2", "kl_img_020.gif", "Label3(0)",
     "Impression au format A4 avec fond de facture graphique modifiable. Vous pouvez modifier le "
     "fond de facture avec un simple éditeur graphque style 'Paint' fourni avec Windows",
     true, true},
    {4, "Image7", "kl_img_028.gif", "Label3(3)",
     "Impression au format 1/3 (page divisée en trois) sur papier blanc, les cadres sont dessinés "
     "par l'ordinateur",
     false, false},
    {5, "Image4", "kl_img_046.gif", "Label3(5)",
     "Impression au format demi-A4 (demi-page) Graphique. Vous pouvez modifier le fond de facture "
     "avec un éditeur graphique.",
     false, true},
};
inline constexpr int invoiceFormatCount = 6;
