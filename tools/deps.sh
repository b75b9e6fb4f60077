# The Debian packages the tool needs to build, run and be tested, in one
# place. Sourced by run.sh and test.sh; `ensure_deps` installs what is
# missing when run as root, otherwise prints the line to run and stops.

KALVO_DEPS=(
    build-essential cmake ninja-build pkg-config
    qt6-base-dev qt6-serialport-dev libusb-1.0-0-dev
    fonts-liberation
    cups printer-driver-cups-pdf poppler-utils
    xvfb xauth x11-utils
    clang libclang-rt-14-dev
    libzint-dev zxing-cpp-tools libzxing-dev fonts-vlgothic
    strace lintian umockdev libumockdev-dev udev
    wine wine64 gcc-mingw-w64-x86-64
)

kalvo_missing_deps() {
    local pkg
    for pkg in "${KALVO_DEPS[@]}"; do
        if ! dpkg-query -W -f='${Status}\n' "$pkg" 2>/dev/null | grep -q '^install ok installed$'; then
            printf '%s\n' "$pkg"
        fi
    done
}

ensure_deps() {
    if ! command -v dpkg-query >/dev/null 2>&1; then
        echo "This set-up expects a Debian 12 system (dpkg-query not found)." >&2
        return 1
    fi
    local missing
    mapfile -t missing < <(kalvo_missing_deps)
    [ "${#missing[@]}" -eq 0 ] && return 0
    if [ "$(id -u)" -eq 0 ]; then
        echo "Installing: ${missing[*]}"
        export DEBIAN_FRONTEND=noninteractive
        apt-get update </dev/null
        apt-get install -y --no-install-recommends "${missing[@]}" </dev/null
    else
        echo "Some Debian packages are missing. Install them with:" >&2
        echo "  sudo apt-get install ${missing[*]}" >&2
        return 1
    fi
}
