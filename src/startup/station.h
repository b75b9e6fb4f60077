#pragma once
// The station: NUM_POSTE of the parameter table, read as a number, chooses
// the file of the peripheral records and the text of Label14.
#include <QString>

struct Station {
    double number = 0;
    bool isNetworkTill() const { return number != 0; }
    // 20 on the main station or server, 120 on a network till.
    qint16 fichier_perif() const;
    QString label() const;
};

Station stationOf(const QString& numPoste);
