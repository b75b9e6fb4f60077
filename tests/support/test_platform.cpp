#include "support/test_platform.h"

#include <stdexcept>

#include "print/qt_mscomm.h"

TestPlatform::TestPlatform(const std::set<int>& ptyPorts) {
    for (int n = 1; n <= 12; ++n) {
        // A folder exists, so no fallback to /dev/ttyS is tried, and it
        // cannot be opened as a port.
        QString target = wine_.prefix();
        if (ptyPorts.count(n)) {
            auto& pty = ptys[n] = std::make_unique<PtyPair>();
            if (!pty->ok()) throw std::runtime_error("no pseudo-terminal");
            target = pty->slavePath();
        }
        wine_.link(n, target);
    }
}

std::unique_ptr<MSComm> TestPlatform::newPort() {
    return std::make_unique<QtMSComm>();
}
