#pragma once
// The C functions of the two USB printer libraries, as the program resolves
// them by name. The T1 family talks to the kernel's USB printer device, the
// T3 family to the printer interface through libusb.
#define USB_API extern "C" __attribute__((visibility("default")))

// Each open answers exactly 1 when the printer is reachable, 0 otherwise.
// Each write answers the number of bytes written, or -1.
USB_API short OpenUsbPort(void);
USB_API int WriteUSB(const char* bytes, int count);
USB_API short CloseUsbPort(void);

USB_API short OpenUsbPor3(int selector);
USB_API int WriteUS3(const char* bytes, int count);
USB_API short CloseUsbPor3(void);
