#pragma once
// The ticket line file W_FE1032.WDO (file 132, records of 256 bytes).
#include <QByteArray>
#include <QDate>
#include <QString>

class RecordStore;

struct TicketLine {
    QByteArray texte;  // 200 characters
    qint32 pos_x = 0, pos_y = 0, gras = 0, italique = 0, souligne = 0, reserve = 0;
    float taille = 0;
    QByteArray police;  // 27 characters

    static TicketLine fromRecord(QByteArrayView record);
    QByteArray toRecord() const;  // 256 bytes, little-endian, filler blank
};

void ouvre_fe1032(RecordStore& store, const QDate& today);
