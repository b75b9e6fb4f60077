// The numeric rule on any text: a finite value, 0 when no digit stands in the
// text, and the conversions fail only by their Failure.
#include <cmath>
#include <cstdint>

#include "data_dir.h"
#include "store/failure.h"
#include "store/numeric.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArrayView text(reinterpret_cast<const char*>(data), qsizetype(size));
    const double value = numericValue(text);
    expect(std::isfinite(value));
    bool digit = false;
    for (char c : text) digit = digit || (c >= '0' && c <= '9');
    expect(digit || value == 0);
    // Screen text reads as its bytes do: nothing above 0x7f belongs to a number.
    expect(numericValue(QString::fromLatin1(text.data(), text.size())) == value);
    for (auto convert :
         {+[](double v) { return double(toByte(v)); }, +[](double v) { return double(toInt16(v)); },
          +[](double v) { return double(toInt32(v)); }}) {
        try {
            expect(std::fabs(convert(value) - value) <= 0.5);
        } catch (const Failure&) {
        }
    }
    return 0;
}
