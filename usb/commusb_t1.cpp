// T1 family: the first of the kernel's USB printer devices that opens.
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "usb_api.h"

namespace {
int device = -1;
constexpr int devicesLooked = 16;
}  // namespace

short OpenUsbPort(void) {
    if (device >= 0) return 1;
    for (int i = 0; i < devicesLooked; ++i) {
        char path[32];
        std::snprintf(path, sizeof path, "/dev/usb/lp%d", i);
        device = ::open(path, O_WRONLY | O_CLOEXEC);
        if (device >= 0) return 1;
    }
    return 0;
}

int WriteUSB(const char* bytes, int count) {
    if (device < 0 || count < 0) return -1;
    int written = 0;
    while (written < count) {
        const ssize_t n = ::write(device, bytes + written, size_t(count - written));
        if (n < 0) {
            if (errno == EINTR) continue;
            return written > 0 ? written : -1;
        }
        written += int(n);
    }
    return written;
}

short CloseUsbPort(void) {
    if (device < 0) return 0;
    ::close(device);
    device = -1;
    return 1;
}
