#include "shell/placing.h"

#include <QScreen>
#include <QWidget>

#include "shell/context.h"
#include "shell/image_banks.h"
#include "shell/screen.h"

namespace {
constexpr int cornerSize = 480 / twipsPerPixel;

int screenWidthOf(const QWidget& form) {
    const QScreen* screen = form.screen();
    return screen ? screen->geometry().width() : designWidth;
}
}  // namespace

void place_ecran(QWidget& form) {
    place_ecran(form, screenWidthOf(form));
}

void place_ecran(QWidget& form, int screenWidth) {
    form.resize(designWidth, designHeight);
    form.move((screenWidth - designWidth) / 2, 0);
    form.raise();
}

void centre_ecran(QWidget& form) {
    centre_ecran(form, screenWidthOf(form));
}

void centre_ecran(QWidget& form, int screenWidth) {
    form.move((screenWidth - form.width()) / 2, (designHeight - form.height()) / 2);
}

void pose_cadre(Screen& form) {
    const int w = form.width();
    const int h = form.height();
    const int c = cornerSize;
    struct Piece {
        QPoint at;
        QSize size;  // empty: the picture's own size (the corners)
    };
    const Piece pieces[8] = {
        {{0, 0}, {}},
        {{w - c, 0}, {}},
        {{w - c, h - c}, {}},
        {{0, h - c}, {}},
        {{0, c}, {c, h - 2 * c}},
        {{c, 0}, {w - 2 * c, c}},
        {{w - c, c}, {c, h - 2 * c}},
        {{c, h - c}, {w - 2 * c, c}},
    };
    Icc& icc = form.ctx.icc();
    for (int i = 0; i < 8; ++i) {
        QLabel*& piece = form.ccb[i];
        if (!piece) {
            piece = form.make<QLabel>(arrayName(QStringLiteral("ccb"), i));
            piece->setScaledContents(true);
            piece->setAttribute(Qt::WA_TransparentForMouseEvents);
        }
        const QPixmap& picture = icc.ccb.at(i);
        piece->setPixmap(picture);
        piece->setGeometry(
            QRect(pieces[i].at, pieces[i].size.isEmpty() ? picture.size() : pieces[i].size));
        piece->show();
        piece->lower();
    }
}
