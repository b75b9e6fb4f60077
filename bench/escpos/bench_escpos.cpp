// The virtual printer's speed, side by side with its floors:
//  - the standard test ticket, and a ticket with a QR code, a PDF417 and a
//    576-dot-wide raster picture, each decoded and drawn, against the time
//    its bytes take on a 115200-baud wire (the printer must keep up with the
//    fastest line a till sets: target under 1 % of it);
//  - a megabyte of random bytes decoded, against a plain copy and a plain
//    scan of the same bytes (target above 100 MB/s).
//
//   bench_escpos [rounds]     (200 by default)
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QRandomGenerator>
#include <algorithm>
#include <cstdio>
#include <cstring>

#include "escpos/decoder.h"
#include "escpos/render.h"
#include "print/accents.h"
#include "print/standard_ticket.h"

namespace {

QByteArray standardTicketWire() {
    QByteArray bytes;
    for (const Write& w : composeTestTicket(standardTicketFields()).writes) {
        QByteArray piece = w.bytes;
        if (w.how == Write::How::Translated) traduit_accents(piece, 2);
        bytes += piece;
    }
    return bytes;
}

// GS ( k pL pH cn fn parameters.
QByteArray symbolFunction(int cn, int fn, const QByteArray& parameters) {
    const qsizetype length = parameters.size() + 2;
    return QByteArray("\x1d(k") + char(length & 0xFF) + char(length >> 8) + char(cn) + char(fn) +
           parameters;
}

// A ticket of modern symbols: a QR code and a PDF417 centred, and a raster
// picture (GS v 0) across the whole 576 dots of the paper, 160 rows of
// diagonal stripes.
QByteArray symbolTicket() {
    QByteArray bytes(
        "\x1b@\x1b"
        "a1Ticket 17\n");
    bytes += symbolFunction(49, 67, "\x06") + symbolFunction(49, 69, "1") +
             symbolFunction(49, 80, "0https://kalvo.example/ticket/2026/17?total=3.50") +
             symbolFunction(49, 81, "0");
    bytes +=
        symbolFunction(48, 80, "0Kalvo ticket 17, total 3,50 EUR") + symbolFunction(48, 81, "0");
    const int widthBytes = 72, rows = 160;
    bytes += QByteArray("\x1dv0\x00", 4) + char(widthBytes) + char(0) + char(rows) + char(0);
    for (int y = 0; y < rows; ++y)
        for (int x = 0; x < widthBytes; ++x) bytes += char(0x80 >> ((x + y) % 8));
    return bytes + "\n\x1dV1";
}

// The median of rounds runs of what, in microseconds.
template <typename F>
double medianMicros(int rounds, F&& what) {
    std::vector<double> times;
    for (int i = 0; i < rounds; ++i) {
        QElapsedTimer clock;
        clock.start();
        what();
        times.push_back(double(clock.nsecsElapsed()) / 1e3);
    }
    std::nth_element(times.begin(), times.begin() + rounds / 2, times.end());
    return times[size_t(rounds / 2)];
}

volatile qint64 sink = 0;
void keep(qint64 v) {
    sink = sink + v;
}

}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    const int rounds = argc > 1 ? std::max(3, std::atoi(argv[1])) : 200;

    // A ticket decoded, and decoded and drawn, against its wire time.
    auto measure = [&](const char* name, const QByteArray& ticket) {
        auto decodeTicket = [&] {
            escpos::Decoder d;
            d.feed(ticket);
            d.finish();
            return d.document();
        };
        (void)escpos::renderSheet(decodeTicket().sheets.front());  // fonts loaded once
        const double decodeUs =
            medianMicros(rounds, [&] { keep(qint64(decodeTicket().sheets.size())); });
        const double renderUs = medianMicros(rounds, [&] {
            const escpos::Document doc = decodeTicket();
            for (const escpos::Sheet& sheet : doc.sheets) keep(escpos::renderSheet(sheet).height());
        });
        const double wireUs = double(ticket.size()) * 10 / 115200 * 1e6;  // start, 8 data, stop
        std::printf("%s, %lld bytes (median of %d)\n", name, qlonglong(ticket.size()), rounds);
        std::printf("  on a 115200-baud wire      %9.1f us\n", wireUs);
        std::printf("  decoded                    %9.1f us  %6.3f %% of the wire\n", decodeUs,
                    100 * decodeUs / wireUs);
        std::printf(
            "  decoded and drawn          %9.1f us  %6.3f %% of the wire  (target under 1 %%)\n",
            renderUs, 100 * renderUs / wireUs);
    };
    measure("standard test ticket", standardTicketWire());
    measure("ticket with a QR code, a PDF417 and a 576-dot raster picture", symbolTicket());

    QByteArray random(1 << 20, Qt::Uninitialized);
    QRandomGenerator generator(12);
    generator.fillRange(reinterpret_cast<quint32*>(random.data()), random.size() / 4);
    QByteArray copy(random.size(), Qt::Uninitialized);
    size_t blocks = 0;
    const double megabyte = double(random.size()) / 1e6;
    const double decodeRandomUs = medianMicros(std::max(3, rounds / 20), [&] {
        escpos::Decoder d;
        d.feed(random);
        d.finish();
        blocks = 0;
        for (const escpos::Sheet& s : d.document().sheets) blocks += s.blocks.size();
    });
    const double copyUs = medianMicros(rounds, [&] {
        std::memcpy(copy.data(), random.constData(), size_t(random.size()));
        keep(copy.at(rounds % copy.size()));
    });
    const double scanUs = medianMicros(rounds, [&] {
        // The least a decoder does: look at every byte for a control code.
        qint64 controls = 0;
        for (const char c : random) controls += uchar(c) < 0x20;
        keep(controls);
    });

    std::printf("a megabyte of random bytes (%zu blocks made)\n", blocks);
    std::printf("  copied (memcpy)            %9.1f MB/s\n", megabyte / copyUs * 1e6);
    std::printf("  scanned for control codes  %9.1f MB/s\n", megabyte / scanUs * 1e6);
    std::printf("  decoded                    %9.1f MB/s  (target above 100 MB/s)\n",
                megabyte / decodeRandomUs * 1e6);
    return 0;
}
