// T3 family: the bulk OUT endpoint of the first printer-class interface
// (class 7) found on the bus, through libusb.
#include <libusb.h>

#include "usb_api.h"

namespace {

constexpr int printerClass = LIBUSB_CLASS_PRINTER;
constexpr unsigned int writeTimeoutMs = 10000;
constexpr int chunk = 4096;

struct Printer {
    libusb_context* context = nullptr;
    libusb_device_handle* handle = nullptr;
    int interface = -1;
    unsigned char endpoint = 0;
};
Printer printer;

struct Found {
    int interface = -1;
    int alternate = 0;
    unsigned char endpoint = 0;
};

// The first printer interface of the device with a bulk OUT endpoint.
Found findPrinterInterface(libusb_device* device) {
    libusb_config_descriptor* config = nullptr;
    if (libusb_get_active_config_descriptor(device, &config) != 0) return {};
    Found found;
    for (int i = 0; i < config->bNumInterfaces && found.interface < 0; ++i) {
        const libusb_interface& interface = config->interface[i];
        for (int a = 0; a < interface.num_altsetting && found.interface < 0; ++a) {
            const libusb_interface_descriptor& alt = interface.altsetting[a];
            if (alt.bInterfaceClass != printerClass) continue;
            for (int e = 0; e < alt.bNumEndpoints; ++e) {
                const libusb_endpoint_descriptor& ep = alt.endpoint[e];
                const bool bulk =
                    (ep.bmAttributes & LIBUSB_TRANSFER_TYPE_MASK) == LIBUSB_TRANSFER_TYPE_BULK;
                const bool out =
                    (ep.bEndpointAddress & LIBUSB_ENDPOINT_DIR_MASK) == LIBUSB_ENDPOINT_OUT;
                if (bulk && out) {
                    found = Found{alt.bInterfaceNumber, alt.bAlternateSetting, ep.bEndpointAddress};
                    break;
                }
            }
        }
    }
    libusb_free_config_descriptor(config);
    return found;
}

bool claim(libusb_device* device, const Found& found) {
    libusb_device_handle* handle = nullptr;
    if (libusb_open(device, &handle) != 0) return false;
    // The kernel's printer driver gives the interface back at the close.
    libusb_set_auto_detach_kernel_driver(handle, 1);
    if (libusb_claim_interface(handle, found.interface) != 0) {
        libusb_close(handle);
        return false;
    }
    if (found.alternate != 0)
        libusb_set_interface_alt_setting(handle, found.interface, found.alternate);
    printer.handle = handle;
    printer.interface = found.interface;
    printer.endpoint = found.endpoint;
    return true;
}

void release() {
    if (printer.handle) {
        libusb_release_interface(printer.handle, printer.interface);
        libusb_close(printer.handle);
    }
    if (printer.context) libusb_exit(printer.context);
    printer = Printer{};
}

}  // namespace

// The selector is the vendor's; every printer found answers to it here.
short OpenUsbPor3(int /*selector*/) {
    if (printer.handle) return 1;
    if (libusb_init(&printer.context) != 0) {
        printer.context = nullptr;
        return 0;
    }
    libusb_device** devices = nullptr;
    const ssize_t count = libusb_get_device_list(printer.context, &devices);
    bool opened = false;
    for (ssize_t i = 0; i < count && !opened; ++i) {
        const Found found = findPrinterInterface(devices[i]);
        if (found.interface >= 0) opened = claim(devices[i], found);
    }
    if (devices) libusb_free_device_list(devices, 1);
    if (!opened) release();
    return opened ? 1 : 0;
}

int WriteUS3(const char* bytes, int count) {
    if (!printer.handle || count < 0) return -1;
    int written = 0;
    while (written < count) {
        int sent = 0;
        const int piece = count - written < chunk ? count - written : chunk;
        auto* data = reinterpret_cast<unsigned char*>(const_cast<char*>(bytes + written));
        const int status = libusb_bulk_transfer(printer.handle, printer.endpoint, data, piece,
                                                &sent, writeTimeoutMs);
        written += sent;
        if (status != 0 && status != LIBUSB_ERROR_INTERRUPTED) return written > 0 ? written : -1;
    }
    return written;
}

short CloseUsbPor3(void) {
    const bool wasOpen = printer.handle != nullptr;
    release();
    return wasOpen ? 1 : 0;
}
