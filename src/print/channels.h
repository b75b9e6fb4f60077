#pragma once
// Sending a composed job through a channel. Each send stops at the first
// failure by throwing Failure; what was written before it stays written.
#include <functional>

#include "print/job.h"

class MSComm;
class UsbFamily;
class UsbLibraries;

using LetEventsRun = std::function<void()>;

// Serial: Direct writes go to output as they stand; Translated writes pass
// traduit_accents(mode) first (envoi_serie). With kitchenLineFeed, a
// translated write also gets a line feed behind it (envoi_cuisine).
void sendSerial(MSComm& port, const Job& job, int mode, const LetEventsRun& letEventsRun,
                bool kitchenLineFeed = false);

// envoi_serie: translate in place, then output; the caller keeps the translation.
void envoi_serie(MSComm& port, QByteArray& text, int mode_accent);

// The USB channel: each send is open, write, close through the family. An open
// that does not return exactly 1 calls unreachable() (the bubble) and sends
// nothing; every other error is ignored.
class UsbChannel {
  public:
    UsbChannel(UsbLibraries& libraries, std::function<void()> unreachable);
    void envoi_usb(QByteArray& text, int mode_accent, qint16 famille_usb);
    void envoi_usb_brut(const QByteArray& text, qint16 famille_usb);
    // Every write of the job through envoi_usb, or envoi_usb_brut for Raw ones.
    void send(const Job& job, int mode_accent, qint16 famille_usb,
              const LetEventsRun& letEventsRun);

  private:
    void sendBytes(const QByteArray& bytes, qint16 famille_usb);
    UsbLibraries& libraries_;
    std::function<void()> unreachable_;
};
