#pragma once
// bienvenu015: the choice of the format in which the sales program prints
// invoices, and the horizontal margin that aligns the smaller formats with
// their graphics. A click on a picture only selects; "Fin" writes the format
// (record 80) and closes; "Marges" writes the margin (record 87) at once.
// The guided installation reads the choice back from format_facture.
#include "shell/screen.h"

class bienvenu015 : public Screen {
    Q_OBJECT
  public:
    explicit bienvenu015(Context& ctx);

    void load() override;
    void bt_prog_Click(int index) override;

    // Paints the frame of the format in format_facture red, the others grey.
    void select_shape();
    // Asks for the margin in millimetres and stores it in twentieths of a point.
    void regle_decal();
    // Writes the format (and drops the margin of a full page), then closes.
    void valide_format();

  private:
    void loadPictures();
    void choose(qint16 format);
};
