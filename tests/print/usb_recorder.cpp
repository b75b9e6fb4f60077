// A drop-in for the USB printer libraries, for tests: the same file names and
// functions, each call appended to the file named by KALVO_USB_RECORD, one
// line a call, the bytes of a write in hex. The open answers the number in
// KALVO_USB_OPEN (1 when unset). Built once per family (RECORDER_T3 gives the
// T3 names) and once without its write function (RECORDER_WITHOUT_WRITE).
#include <cstdio>
#include <cstdlib>

#define RECORDER_API extern "C" __attribute__((visibility("default")))

namespace {

void record(const char* call, const char* bytes = nullptr, int count = 0) {
    const char* path = std::getenv("KALVO_USB_RECORD");
    if (!path) return;
    std::FILE* file = std::fopen(path, "ab");
    if (!file) return;
    std::fprintf(file, "%s", call);
    if (bytes) {
        std::fprintf(file, " %d ", count);
        for (int i = 0; i < count; ++i)
            std::fprintf(file, "%02x", static_cast<unsigned char>(bytes[i]));
    }
    std::fprintf(file, "\n");
    std::fclose(file);
}

short openResult() {
    const char* value = std::getenv("KALVO_USB_OPEN");
    return value ? static_cast<short>(std::atoi(value)) : 1;
}

}  // namespace

#ifdef RECORDER_T3
RECORDER_API short OpenUsbPor3(int selector) {
    char call[32];
    std::snprintf(call, sizeof call, "OpenUsbPor3 %d", selector);
    record(call);
    return openResult();
}
#ifndef RECORDER_WITHOUT_WRITE
RECORDER_API int WriteUS3(const char* bytes, int count) {
    record("WriteUS3", bytes, count);
    return count;
}
#endif
RECORDER_API short CloseUsbPor3(void) {
    record("CloseUsbPor3");
    return 1;
}
#else
RECORDER_API short OpenUsbPort(void) {
    record("OpenUsbPort");
    return openResult();
}
#ifndef RECORDER_WITHOUT_WRITE
RECORDER_API int WriteUSB(const char* bytes, int count) {
    record("WriteUSB", bytes, count);
    return count;
}
#endif
RECORDER_API short CloseUsbPort(void) {
    record("CloseUsbPort");
    return 1;
}
#endif
