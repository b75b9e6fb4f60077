#include "fixtures.h"

#include <QDate>

#include "expert/printer_presets.h"
#include "expert/test_jobs.h"
#include "print/channels.h"
#include "print/code_string.h"
#include "print/mscomm.h"
#include "print/standard_ticket.h"
#include "support/test_platform.h"

namespace {

class Wire : public MSComm {
  public:
    QByteArray bytes;
    void setCommPort(int) override {}
    int commPort() const override { return 1; }
    void setPortOpen(bool) override {}
    bool portOpen() const override { return true; }
    void setSettings(const QString&) override {}
    QString settings() const override { return {}; }
    void output(QByteArrayView b) override { bytes += b.toByteArray(); }
    void drain() override {}
};

QByteArray serial(const Job& job, int mode, bool kitchen = false) {
    Wire wire;
    sendSerial(wire, job, mode, {}, kitchen);
    return wire.bytes;
}

QByteArray usb(const Job& job, int mode) {
    NotingUsb libraries;
    libraries.t1.reachable = true;
    UsbChannel channel(libraries, [] {});
    channel.send(job, mode, 0, {});
    return libraries.t1.writes.join();
}

QStringList fields(const char* values, int count) {
    QStringList out = QString::fromLatin1(values).split(u' ', Qt::SkipEmptyParts);
    while (out.size() < count) out << QString();
    return out;
}

}  // namespace

std::vector<Fixture> wireFixtures() {
    std::vector<Fixture> out;
    for (const char* table : {"016", "002"})
        for (int mode = 0; mode <= 2; ++mode) {
            TicketFields f = standardTicketFields();
            f.init2[2] = QString::fromLatin1(table);
            out.push_back({QStringLiteral("ticket_t%1_mode%2")
                               .arg(QString::fromLatin1(table).toInt())
                               .arg(mode),
                           serial(composeTestTicket(f), mode), true});
        }
    out.push_back({QStringLiteral("kitchen_mode2"),
                   serial(composeKitchenTicket(standardKitchenFields()), 2, true), true});

    const TicketFields f = standardTicketFields();
    out.push_back({QStringLiteral("code_barres"), serial(test_jobs::code_barres(f), 2)});
    out.push_back({QStringLiteral("ean_serie"), serial(test_jobs::ean_serie(f), 2)});
    out.push_back({QStringLiteral("ean_usb"), usb(test_jobs::ean_usb(), 2)});
    out.push_back({QStringLiteral("graphique_serie"), serial(test_jobs::graphique_serie(f), 2)});
    out.push_back({QStringLiteral("graphique_usb"), usb(test_jobs::graphique_usb(), 2)});
    for (int n = 1; n <= 5; ++n)
        out.push_back({QStringLiteral("cheque%1").arg(n),
                       serial(test_jobs::cheque(n, QDate(2026, 11, 16)), 0)});

    // The cut of the standard preset as the ticket ends with it: a byte a
    // piece, the 0 of its empty sixth piece, and the blank line behind it.
    TicketFields withCut = f;
    withCut.cutWanted = true;
    const std::vector<Write> writes = composeTestTicket(withCut).writes;
    QByteArray cut;
    for (auto w = writes.end() - 5; w != writes.end(); ++w) cut += w->bytes;
    out.push_back({QStringLiteral("cut"), cut});
    // The drawer codes of the two serial presets, as the sales program sends them.
    QByteArray pulses;
    for (const char* button : {"Command3", "Command5(0)"})
        pulses += codeBytes(fields(printerPreset(QString::fromLatin1(button)).drawer, 11));
    out.push_back({QStringLiteral("drawer"), pulses});
    return out;
}
