#include "shell/image_banks.h"

#include "shell/bank_pictures.h"
#include "shell/context.h"
#include "shell/info_bubble.h"

namespace {
// The theme's tints: the first of each list is the look of the default theme.
const QColor standardTint(0xC9, 0xD4, 0xE1);
const QColor keyTint(0xD7, 0xDA, 0xDE);
}  // namespace

Icc::Icc(Platform& platform)
    : MSComm1(platform.newPort()), MSComm2(platform.newPort()), MSCuisine(platform.newPort()) {
    neutralIcon_.define(0, pictures::neutralIcon);
    for (int number : barIconNumbers)
        p11.define(number, [number] { return pictures::barIcon(number); });
    btc.define(71, [] { return pictures::slotFace(standardTint); });
    bt_fonc.define(46, [] { return pictures::functionFace(standardTint); });
    for (int i = 0; i < 8; ++i) ccb.define(i, [i] { return pictures::framePiece(i); });
    Image1.define(2, pictures::dialogIcon);
    for (int value = 0; value <= 2; ++value)
        oui.define(value, [value] { return pictures::tickBox(value); });
    Image3.define(0, pictures::validate);
    Image3.define(1, pictures::labelPrinter);
    tclavv = pictures::keyFace(keyTint);
    ticket2 = pictures::ticket();
    // The three ports' event: what arrives replaces what the bank held.
    for (MSComm* port : {MSComm1.get(), MSComm2.get(), MSCuisine.get()})
        if (port) port->setOnReceive([this](const QByteArray& received) { input = received; });
}

Icc::~Icc() = default;

const QPixmap& Icc::p11Picture(int number) const {
    return p11.contains(number) ? p11.at(number) : neutralIcon_.at(0);
}

Icr::Icr() {
    const QColor tints[] = {standardTint,
                            QColor(0xB9, 0xDE, 0xB5),
                            QColor(0xF5, 0xD0, 0x9A),
                            QColor(0xD4, 0xC4, 0xEA),
                            QColor(0xAE, 0xB9, 0xC4),
                            QColor(0xA8, 0xDA, 0xD6)};
    for (int i = 0; i < 6; ++i) {
        bxr.define(i, [tint = tints[i]] { return pictures::functionFace(tint); });
        bxm.define(i, [tint = tints[i]] { return pictures::slotFace(tint); });
    }
    // The places the suite keeps for a picture of the shop's own (persimg_003
    // and persimg_004), and the keypad face that the default theme selects.
    bxr.define(13, [] { return pictures::functionFace(QColor(0xE6, 0xE6, 0xE6)); });
    bxm.define(16, [] { return pictures::slotFace(QColor(0xE6, 0xE6, 0xE6)); });
    bxm.define(10, [] { return pictures::keyFace(keyTint); });
}
