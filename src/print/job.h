#pragma once
// A ticket, a test job or a pulse is first a list of writes, composed without
// touching any device, then handed to a channel.
#include <QByteArray>
#include <QString>
#include <vector>

struct Write {
    enum class How {
        Direct,      // as it stands
        Translated,  // through the accent translation of the channel
        Raw,         // USB only: envoi_usb_brut, never translated
    };
    QByteArray bytes;
    How how = How::Direct;
    bool letEventsRunAfter = false;  // the feed loop lets the screen's events through
};

// The writes in wire order. A composition that fails at some step (a code
// above 255, a negative margin) keeps the writes before it and records the
// failure where it happened: a channel sends up to that point and then fails.
struct Job {
    std::vector<Write> writes;
    bool failed = false;
    QString failure;

    void add(QByteArray bytes, Write::How how = Write::How::Direct, bool yield = false) {
        writes.push_back(Write{std::move(bytes), how, yield});
    }
};
