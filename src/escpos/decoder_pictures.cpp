// The picture commands of the decoder: GS v 0, GS ( L and GS 8 L, GS * with
// GS /, FS q with FS p; and the requests that print nothing.
#include <algorithm>

#include "escpos/decoder.h"

namespace escpos {

namespace {

constexpr unsigned char DLE = 0x10, FS = 0x1C, GS = 0x1D;
// No picture taller than a metre of paper.
constexpr int maxPictureHeight = 8000;

unsigned char at(QByteArrayView c, qsizetype i) {
    return static_cast<unsigned char>(c.at(i));
}
int word(QByteArrayView c, qsizetype i) {
    return at(c, i) | at(c, i + 1) << 8;
}

QString keyName(int key) {
    return QStringLiteral("« %1%2 »").arg(QChar(key >> 8)).arg(QChar(key & 0xFF));
}

}  // namespace

bool Decoder::pictureCommand(QByteArrayView c) {
    if (c.size() < 2) return false;
    const unsigned char b = at(c, 0), cmd = at(c, 1);
    if (b == GS) {
        if (cmd == 'v' && c.size() >= 8 && at(c, 2) == '0') return rasterImage(c), true;
        if (cmd == '(' && c.size() >= 7 && at(c, 2) == 'L') return graphics(c.sliced(5), c), true;
        if (cmd == '8' && c.size() >= 9 && at(c, 2) == 'L') return graphics(c.sliced(7), c), true;
        if (cmd == '*' && c.size() >= 4) return defineBitImage(c), true;
        if (cmd == '/' && c.size() >= 3) return printBitImage(c), true;
        return false;
    }
    if (b == FS) {
        if (cmd == 'q' && c.size() >= 3) return defineNvBitImages(c), true;
        if (cmd == 'p' && c.size() >= 4) return printNvBitImage(c), true;
    }
    return false;
}

void Decoder::rasterImage(QByteArrayView c) {
    int scaleX = 1, scaleY = 1;
    if (!pictureScaling(at(c, 3), scaleX, scaleY))
        return mark(c.first(8), QStringLiteral("mode d'image hors plage"));
    const int width = word(c, 4) * 8, height = word(c, 6);
    if (width == 0 || height == 0) return mark(c, QStringLiteral("image vide"));
    // Beyond 16 MB only the header was taken.
    if (c.size() < 8 + rasterBytes(width, height))
        return mark(c, QStringLiteral("image de plus de 16 Mo, ignorée"));
    Picture p = rasterPicture(c.sliced(8), width, height);
    p.command = QStringLiteral("GS v 0 %1").arg(at(c, 3));
    p.scaleX = scaleX;
    p.scaleY = scaleY;
    printPicture(std::move(p));
}

// p: the parameters from m on, whole: c the command as received.
void Decoder::graphics(QByteArrayView p, QByteArrayView c) {
    const QString name = at(c, 1) == '(' ? QStringLiteral("GS ( L") : QStringLiteral("GS 8 L");
    if (p.size() < 2 || at(p, 0) != 48)
        return mark(c, QStringLiteral("%1 : paramètres hors plage").arg(name));
    const int fn = at(p, 1);
    auto needs = [&](qsizetype size) {
        if (p.size() >= size) return true;
        mark(c, QStringLiteral("%1 %2 : paramètres trop courts").arg(name).arg(fn));
        return false;
    };
    switch (fn) {
        case 0:
        case 48:
        case 3:
        case 51:
        case 4:
        case 52:
        case 64:
        case 80:
            return request(c, QStringLiteral("%1 %2 : demande de capacité ou de codes des "
                                             "images, réponse à l'hôte")
                                  .arg(name)
                                  .arg(fn));
        case 1:
        case 49:
            // The reference dot density: pictures are drawn at the printer's own.
            return;
        case 2:
        case 50:
            if (!pictures_.buffer)
                return mark(c, QStringLiteral("%1 50 : aucune image en mémoire").arg(name));
            printPicture(std::move(*pictures_.buffer));
            pictures_.buffer.reset();
            return;
        case 112:
        case 113: {
            if (!needs(10)) return;
            const int scaleX = at(p, 3), scaleY = at(p, 4);
            const int width = word(p, 6), height = word(p, 8);
            if (scaleX < 1 || scaleX > 2 || scaleY < 1 || scaleY > 2 || width == 0 || height == 0)
                return mark(c.first(std::min<qsizetype>(c.size(), 16)),
                            QStringLiteral("%1 %2 : paramètres hors plage").arg(name).arg(fn));
            const QByteArrayView data = p.sliced(10);
            const bool raster = fn == 112;
            if (data.size() < (raster ? rasterBytes(width, height) : columnBytes(width, height)))
                return mark(c, QStringLiteral("%1 %2 : données trop courtes").arg(name).arg(fn));
            Picture picture =
                raster ? rasterPicture(data, width, height) : columnPicture(data, width, height);
            picture.command = QStringLiteral("%1 %2 puis 50").arg(name).arg(fn);
            picture.scaleX = scaleX;
            picture.scaleY = scaleY;
            // A second colour of the same picture adds its dots.
            if (pictures_.buffer && pictures_.buffer->width == width &&
                pictures_.buffer->height == height && pictures_.buffer->scaleX == scaleX &&
                pictures_.buffer->scaleY == scaleY)
                overlay(picture, *pictures_.buffer);
            pictures_.buffer = std::move(picture);
            return;
        }
        case 67:
        case 68:
        case 83:
        case 84: {
            if (!needs(10)) return;
            const int key = at(p, 3) << 8 | at(p, 4), colours = at(p, 5);
            const int width = word(p, 6), height = word(p, 8);
            const bool raster = fn == 67 || fn == 83;
            const qint64 k = raster ? rasterBytes(width, height) : columnBytes(width, height);
            if (colours < 1 || colours > 4 || width == 0 || height == 0 ||
                p.size() < 10 + colours * (1 + k))
                return mark(c.first(std::min<qsizetype>(c.size(), 16)),
                            QStringLiteral("%1 %2 : définition hors plage").arg(name).arg(fn));
            Picture picture;
            for (int i = 0; i < colours; ++i) {
                const QByteArrayView plane = p.sliced(10 + i * (1 + k) + 1, k);
                Picture colour = raster ? rasterPicture(plane, width, height)
                                        : columnPicture(plane, width, height);
                if (i == 0)
                    picture = std::move(colour);
                else
                    overlay(picture, colour);
            }
            const bool nv = fn == 67 || fn == 68;
            picture.command = QStringLiteral("%1 %2 %3 puis %4")
                                  .arg(name)
                                  .arg(fn)
                                  .arg(keyName(key))
                                  .arg(nv ? 69 : 85);
            (nv ? pictures_.nv : pictures_.downloaded)[key] = std::move(picture);
            return;
        }
        case 69:
        case 85: {
            if (!needs(6)) return;
            const int key = at(p, 2) << 8 | at(p, 3), scaleX = at(p, 4), scaleY = at(p, 5);
            const auto& store = fn == 69 ? pictures_.nv : pictures_.downloaded;
            const auto it = store.find(key);
            if (it == store.end())
                return mark(
                    c,
                    QStringLiteral("%1 %2 : aucune image %3").arg(name).arg(fn).arg(keyName(key)));
            if (scaleX < 1 || scaleX > 2 || scaleY < 1 || scaleY > 2)
                return mark(c,
                            QStringLiteral("%1 %2 : agrandissement hors plage").arg(name).arg(fn));
            Picture picture = it->second;
            picture.scaleX = scaleX;
            picture.scaleY = scaleY;
            return printPicture(std::move(picture));
        }
        case 65:
            pictures_.nv.clear();
            return;
        case 81:
            pictures_.downloaded.clear();
            return;
        case 66:
        case 82:
            if (!needs(4)) return;
            (fn == 66 ? pictures_.nv : pictures_.downloaded).erase(at(p, 2) << 8 | at(p, 3));
            return;
        default:
            return mark(c.first(std::min<qsizetype>(c.size(), 16)),
                        QStringLiteral("%1 %2 : fonction non rendue").arg(name).arg(fn));
    }
}

void Decoder::defineBitImage(QByteArrayView c) {
    const int x = at(c, 2), y = at(c, 3);
    if (x == 0 || y == 0) return mark(c, QStringLiteral("image vide"));
    Picture picture = columnPicture(c.sliced(4), x * 8, y * 8);
    picture.command = QStringLiteral("GS * puis GS /");
    pictures_.bitImage = std::move(picture);
}

void Decoder::printBitImage(QByteArrayView c) {
    int scaleX = 1, scaleY = 1;
    if (!pictureScaling(at(c, 2), scaleX, scaleY))
        return mark(c, QStringLiteral("mode d'image hors plage"));
    if (!pictures_.bitImage) return mark(c, QStringLiteral("aucune image définie par GS *"));
    Picture picture = *pictures_.bitImage;
    picture.command += QStringLiteral(" %1").arg(at(c, 2));
    picture.scaleX = scaleX;
    picture.scaleY = scaleY;
    printPicture(std::move(picture));
}

void Decoder::defineNvBitImages(QByteArrayView c) {
    if (c.size() == 3 && at(c, 2) != 0)
        return mark(c, QStringLiteral("FS q : taille d'image hors plage"));
    pictures_.nvBitImages.clear();
    qsizetype pos = 3;
    for (int i = 0; i < at(c, 2); ++i) {
        const int x = word(c, pos), y = word(c, pos + 2);
        Picture picture = columnPicture(c.sliced(pos + 4), x * 8, y * 8);
        picture.command = QStringLiteral("FS q puis FS p %1").arg(i + 1);
        pictures_.nvBitImages.push_back(std::move(picture));
        pos += 4 + qsizetype(x) * y * 8;
    }
}

void Decoder::printNvBitImage(QByteArrayView c) {
    const int n = at(c, 2);
    int scaleX = 1, scaleY = 1;
    if (!pictureScaling(at(c, 3), scaleX, scaleY))
        return mark(c, QStringLiteral("mode d'image hors plage"));
    if (n < 1 || size_t(n) > pictures_.nvBitImages.size())
        return mark(c, QStringLiteral("aucune image %1 définie par FS q").arg(n));
    Picture picture = pictures_.nvBitImages[size_t(n - 1)];
    picture.scaleX = scaleX;
    picture.scaleY = scaleY;
    printPicture(std::move(picture));
}

// A picture is printed on its own, after the text before it, at the
// justification that holds; what passes the paper's edge is not printed.
void Decoder::printPicture(Picture picture) {
    if (!startOwnLine(QStringLiteral("image %1 en mode page, non rendue").arg(picture.command)))
        return;
    const int room = pageLineLength();
    picture = cropped(picture, room / picture.scaleX, maxPictureHeight / picture.scaleY);
    picture.x = justifiedX(picture.printedWidth());
    addBlock(std::move(picture));
}

// The kanji settings (FS ! & - . C S W, FS ( A): the tables here hold one
// byte a character, so they change nothing printed; libraries send them to
// put a Japanese printer in single-byte mode.
bool Decoder::kanjiCommand(QByteArrayView c) {
    if (c.size() < 2 || at(c, 0) != FS) return false;
    switch (at(c, 1)) {
        case '!':
        case '&':
        case '-':
        case '.':
        case 'C':
        case 'S':
        case 'W':
            return true;
        case '(':
            return c.size() >= 5 && at(c, 2) == 'A';
        default:
            return false;
    }
}

// Paper fed after the last ticket, with nothing printed: the start of a
// ticket that never came, listed with the one before rather than drawn as
// a sheet of its own.
void Decoder::dropBlankSheet() {
    if (doc_.sheets.size() < 2 || doc_.sheets.back().finished) return;
    int fed = 0;
    for (const Block& b : doc_.sheets.back().blocks) {
        const auto* line = std::get_if<Line>(&b);
        if (!line || !line->items.empty() || !line->markers.empty()) return;
        fed += line->advance;
    }
    Sheet blank = std::move(doc_.sheets.back());
    doc_.sheets.pop_back();
    if (rollSheet_ == int(doc_.sheets.size())) rollSheet_ = -1;
    if (slipSheet_ == int(doc_.sheets.size())) slipSheet_ = -1;
    Sheet& last = doc_.sheets.back();
    last.requests.push_back(
        Request{{}, QStringLiteral("papier avancé de %1 points après la fin du ticket").arg(fed)});
    for (Request& r : blank.requests) last.requests.push_back(std::move(r));
}

// Status requests and real-time commands answer the host or act at once:
// they are listed with the sheet the paper is on, and print nothing.
bool Decoder::requestCommand(QByteArrayView c) {
    if (c.size() < 3) return false;
    const unsigned char b = at(c, 0), cmd = at(c, 1);
    const int n = at(c, 2);
    if (b == DLE) {
        if (cmd == 0x04)
            return request(c, QStringLiteral("DLE EOT %1 : état en temps réel").arg(n)), true;
        if (cmd == 0x05)
            return request(c, QStringLiteral("DLE ENQ %1 : requête en temps réel").arg(n)), true;
        if (cmd == 0x14 && n != 1)
            return request(c, QStringLiteral("DLE DC4 %1 : commande en temps réel").arg(n)), true;
        return false;
    }
    if (b != GS) return false;
    if (cmd == 'r') return request(c, QStringLiteral("GS r %1 : demande d'état").arg(n)), true;
    if (cmd == 'I')
        return request(c, QStringLiteral("GS I %1 : demande d'identification").arg(n)), true;
    if (cmd == 'a')
        return request(c, QStringLiteral("GS a %1 : renvoi automatique de l'état").arg(n)), true;
    return false;
}

void Decoder::request(QByteArrayView c, const QString& what) {
    Request r{c.first(std::min<qsizetype>(c.size(), 16)).toByteArray(), what};
    const int index = slipSelected_ ? slipSheet_ : rollSheet_;
    if (index >= 0)
        doc_.sheets[size_t(index)].requests.push_back(std::move(r));
    else if (!doc_.sheets.empty())
        doc_.sheets.back().requests.push_back(std::move(r));
    else
        doc_.requests.push_back(std::move(r));
}

}  // namespace escpos
