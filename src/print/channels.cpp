#include "print/channels.h"

#include "print/accents.h"
#include "print/mscomm.h"
#include "print/usb_family.h"
#include "store/failure.h"

namespace {

// A composition that failed fails the send once the writes before the
// failure are out.
void failWhereComposed(const Job& job) {
    if (job.failed) throw Failure(job.failure);
}

}  // namespace

void envoi_serie(MSComm& port, QByteArray& text, int mode_accent) {
    traduit_accents(text, mode_accent);
    port.output(text);
}

void sendSerial(MSComm& port, const Job& job, int mode, const LetEventsRun& letEventsRun,
                bool kitchenLineFeed) {
    for (const Write& write : job.writes) {
        if (write.how == Write::How::Translated) {
            QByteArray text = write.bytes;
            traduit_accents(text, mode);
            if (kitchenLineFeed) text.append('\n');
            port.output(text);
        } else {
            port.output(write.bytes);
        }
        if (write.letEventsRunAfter && letEventsRun) letEventsRun();
    }
    failWhereComposed(job);
}

UsbChannel::UsbChannel(UsbLibraries& libraries, std::function<void()> unreachable)
    : libraries_(libraries), unreachable_(std::move(unreachable)) {}

void UsbChannel::envoi_usb(QByteArray& text, int mode_accent, qint16 famille_usb) {
    traduit_accents_usb(text, mode_accent);
    sendBytes(text, famille_usb);
}

void UsbChannel::envoi_usb_brut(const QByteArray& text, qint16 famille_usb) {
    sendBytes(text, famille_usb);
}

void UsbChannel::send(const Job& job, int mode_accent, qint16 famille_usb,
                      const LetEventsRun& letEventsRun) {
    for (const Write& write : job.writes) {
        if (write.how == Write::How::Raw) {
            envoi_usb_brut(write.bytes, famille_usb);
        } else {
            QByteArray text = write.bytes;
            envoi_usb(text, mode_accent, famille_usb);
        }
        if (write.letEventsRunAfter && letEventsRun) letEventsRun();
    }
    failWhereComposed(job);
}

// One whole conversation: open, write, close. Only an open that answers
// exactly 1 lets the bytes go; anything else shows the bubble and ends the
// send. Every other error is passed over.
void UsbChannel::sendBytes(const QByteArray& bytes, qint16 famille_usb) {
    qint16 opened = 0;
    UsbFamily* family = nullptr;
    skip([&] {
        family = &libraries_.family(famille_usb);
        opened = family->open();
    });
    if (opened != 1 || family == nullptr) {
        if (unreachable_) unreachable_();
        return;
    }
    skip([&] { family->write(bytes); });
    skip([&] { family->close(); });
}
