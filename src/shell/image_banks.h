#pragma once
// The hidden banks: icc holds the pictures every screen copies from and the
// serial ports that live for the whole run; icr holds the theme's choices.
// The pictures are our own, each drawn at its first use; the suite's files
// replace some of them through the theme (charge_theme).
#include <QByteArray>
#include <QPixmap>
#include <QStringList>
#include <memory>

#include "print/mscomm.h"
#include "shell/picture_array.h"

class Platform;
class infoobulle;

struct Icc {
    explicit Icc(Platform& platform);
    ~Icc();
    PictureArray p11;      // icons of the bar, by image number
    PictureArray btc;      // slot backgrounds; 71 is in use
    PictureArray bt_fonc;  // 46 takes a theme choice
    PictureArray ccb;      // the eight pieces of the frame
    PictureArray Image1;   // icons of form97; 2 is in use
    PictureArray oui;      // tick box states, by value
    PictureArray fondfact;
    PictureArray Image3;
    QPixmap tclavv;
    QPixmap ticket2;
    QStringList CbPrinters;

    // The icon of a bar's image number; a number without a picture of its own
    // gets the neutral one.
    const QPixmap& p11Picture(int number) const;

    std::unique_ptr<MSComm> MSComm1;
    std::unique_ptr<MSComm> MSComm2;
    std::unique_ptr<MSComm> MSCuisine;
    QByteArray input;  // what the last port event read

    // The one info bubble of the run, made at the first bulle().
    std::unique_ptr<infoobulle> bubble;

  private:
    PictureArray neutralIcon_;  // one picture, at index 0
};

struct Icr {
    Icr();
    PictureArray bxr;  // 7 pictures: 0 to 5 and 13
    PictureArray bxm;  // 8 pictures: 0 to 5, 10 and 16
};

// The picture of an array by index; throws Failure when the array has no such
// picture, as a control array does.
inline const QPixmap& pictureOf(const PictureArray& array, int index) {
    return array.at(index);
}

// The image numbers of p11 that the bars use.
inline constexpr int barIconNumbers[] = {0, 49, 99, 106, 108, 124, 125, 126, 127, 128, 129, 146};
