#include "startup/station.h"

#include <cmath>

#include "store/numeric.h"
#include "store/records.h"

Station stationOf(const QString& numPoste) {
    return Station{numericValue(numPoste)};
}

qint16 Station::fichier_perif() const {
    return isNetworkTill() ? qint16(files::networkTill) : qint16(files::sales);
}

QString Station::label() const {
    if (!isNetworkTill()) return QStringLiteral("Poste principal ou Serveur");
    return QStringLiteral("Caisse Réseau : ") + formatZero(number);
}
