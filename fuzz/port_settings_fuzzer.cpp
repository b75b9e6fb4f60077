// The port parameter string and the settings text on any text, as callers
// and records hand them: a port of two characters, four fields that join
// and split back to themselves, and the strict reading fails only by its
// Failure.
#include <cstdint>

#include "data_dir.h"
#include "print/port_parameter_string.h"
#include "print/serial_settings.h"
#include "store/codec.h"
#include "store/failure.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QString text =
        codec::fromBytes(QByteArrayView(reinterpret_cast<const char*>(data), qsizetype(size)));
    const PortParameter p = decodePortParameter(text);
    expect(p.port >= -9 && p.port <= 99);
    QString rest;
    const QStringList fields = settingsFields(p.settings, &rest);
    expect(fields.size() == 4);
    const QString joined = settingsText(fields);
    expect(settingsFields(joined) == fields);
    if (p.port >= 0) decodePortParameter(portParameterString(p.port, joined));
    try {
        const SerialSettings s = parseSerialSettings(p.settings);
        expect(s.speed > 0 && s.dataBits >= 4 && s.dataBits <= 8);
    } catch (const Failure&) {
    }
    return 0;
}
