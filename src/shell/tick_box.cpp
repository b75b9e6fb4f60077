#include "shell/tick_box.h"

#include <QCheckBox>

#include "store/failure.h"
#include "store/numeric.h"

int tickValue(const QCheckBox& box) {
    switch (box.checkState()) {
        case Qt::Checked:
            return 1;
        case Qt::PartiallyChecked:
            return 2;
        default:
            return 0;
    }
}

void setTickValue(QCheckBox& box, double value) {
    const double tick = roundHalfEven(value);
    if (!(tick >= 0 && tick <= 2)) throw Failure(QStringLiteral("Valeur de propriété non valide"));
    box.setCheckState(tick == 0 ? Qt::Unchecked : tick == 1 ? Qt::Checked : Qt::PartiallyChecked);
}
