#include "mock_printer.h"

#include <errno.h>
#include <glib/gstdio.h>
#include <linux/usbdevice_fs.h>
#include <sys/ioctl.h>
#include <umockdev.h>

namespace {

// usblp's own node, under the USB interface it serves.
const char kernelPrinter[] =
    "P: /devices/pci0000:00/0000:00:14.0/usb1/1-1/1-1:1.0/usbmisc/lp0\n"
    "N: usb/lp0\n"
    "E: SUBSYSTEM=usbmisc\n"
    "E: DEVNAME=/dev/usb/lp0\n"
    "A: dev=180:0\\n\n";

// A printer (interface class 7, subclass 1, bidirectional) with a bulk OUT
// endpoint 0x01 and a bulk IN endpoint 0x82, as its descriptors read in
// sysfs; its usbdevfs node is where libusb talks to it.
const char usbPrinter[] =
    "P: /devices/pci0000:00/0000:00:14.0/usb1/1-1\n"
    "N: bus/usb/001/002\n"
    "E: SUBSYSTEM=usb\n"
    "E: DRIVER=usb\n"
    "E: BUSNUM=001\n"
    "E: DEVNUM=002\n"
    "E: DEVNAME=/dev/bus/usb/001/002\n"
    "E: DEVTYPE=usb_device\n"
    "E: ID_USB_INTERFACES=:070102:\n"
    "A: busnum=1\\n\n"
    "A: devnum=2\\n\n"
    "A: speed=12\\n\n"
    "A: bConfigurationValue=1\\n\n"
    "H: descriptors="
    "120100020000004034120100000101020301"
    "09022000010100c032"
    "090400000207010200"
    "07050102400000"
    "07058202400000\n";

}  // namespace

MockPrinter::MockPrinter(Kind kind, qsizetype unplugAfter) : unplugAfter_(unplugAfter) {
    bed_ = umockdev_testbed_new();
    // umockdev 0.17's preload keeps an entry for every failed open of a /dev
    // path while the testbed's default ioctl handler listens, and aborts
    // after 50: the T1 library looks for 16 nodes at every open. Nothing here
    // needs that default handler (each faked node has its own), so it goes.
    gchar* root = umockdev_testbed_get_root_dir(bed_);
    g_unlink((QByteArray(root) + "/ioctl/_default").constData());
    g_free(root);
    if (kind == Kind::None) return;
    node_ = kind == Kind::KernelPrinter ? QStringLiteral("/dev/usb/lp0")
                                        : QStringLiteral("/dev/bus/usb/001/002");
    handler_ = umockdev_ioctl_base_new();
    g_signal_connect(handler_, "client-connected", G_CALLBACK(onOpen), this);
    g_signal_connect(handler_, "handle-write", G_CALLBACK(onWrite), this);
    g_signal_connect(handler_, "handle-ioctl", G_CALLBACK(onIoctl), this);
    // The handler first, so that the node is an emulated one from the start.
    umockdev_testbed_attach_ioctl(bed_, node_.toUtf8().constData(), handler_, nullptr);
    umockdev_testbed_add_from_string(bed_, kind == Kind::KernelPrinter ? kernelPrinter : usbPrinter,
                                     nullptr);
}

MockPrinter::~MockPrinter() {
    for (UMockdevIoctlData* urb : done_) g_object_unref(urb);
    if (handler_) g_object_unref(handler_);
    g_object_unref(bed_);
}

QByteArray MockPrinter::received() const {
    std::lock_guard lock(mutex_);
    return received_;
}

int MockPrinter::opens() const {
    std::lock_guard lock(mutex_);
    return opens_;
}

void MockPrinter::onOpen(UMockdevIoctlBase*, UMockdevIoctlClient*, MockPrinter* self) {
    std::lock_guard lock(self->mutex_);
    ++self->opens_;
}

qsizetype MockPrinter::take(const char* bytes, qsizetype count) {
    if (gone_) return 0;
    qsizetype taken = count;
    if (unplugAfter_ >= 0 && received_.size() + count >= unplugAfter_) {
        taken = unplugAfter_ - received_.size();
        gone_ = true;
        // Unplugged: the next open finds no node, nor umockdev's socket
        // behind it.
        gchar* root = umockdev_testbed_get_root_dir(bed_);
        g_unlink((QByteArray(root) + node_.toUtf8()).constData());
        g_unlink((QByteArray(root) + "/ioctl" + node_.toUtf8()).constData());
        g_free(root);
    }
    received_.append(bytes, taken);
    return taken;
}

// write() on /dev/usb/lp0: what the printer takes is written; on a vanished
// printer the write fails with ENODEV, as usblp's does.
int MockPrinter::onWrite(UMockdevIoctlBase*, UMockdevIoctlClient* client, MockPrinter* self) {
    std::lock_guard lock(self->mutex_);
    UMockdevIoctlData* buffer = umockdev_ioctl_client_get_arg(client);
    const bool wasGone = self->gone_;
    const qsizetype taken =
        self->take(reinterpret_cast<const char*>(buffer->data), buffer->data_len);
    if (wasGone || (taken == 0 && buffer->data_len > 0))
        umockdev_ioctl_client_complete(client, -1, ENODEV);
    else
        umockdev_ioctl_client_complete(client, glong(taken), 0);
    return TRUE;
}

// The usbdevfs requests that libusb makes to open, claim, write in bulk and
// release. A bulk OUT URB completes at once with what the printer took; the
// one the unplugging cuts completes with ESHUTDOWN, as the kernel reports
// URBs killed by a disconnection; later ones are refused with ENODEV.
int MockPrinter::onIoctl(UMockdevIoctlBase*, UMockdevIoctlClient* client, MockPrinter* self) {
    std::lock_guard lock(self->mutex_);
    UMockdevIoctlData* arg = umockdev_ioctl_client_get_arg(client);
    switch (umockdev_ioctl_client_get_request(client)) {
        case USBDEVFS_GET_CAPABILITIES: {
            UMockdevIoctlData* caps = umockdev_ioctl_data_resolve(arg, 0, sizeof(guint32), nullptr);
            *reinterpret_cast<guint32*>(caps->data) = USBDEVFS_CAP_BULK_CONTINUATION |
                                                      USBDEVFS_CAP_NO_PACKET_SIZE_LIM |
                                                      USBDEVFS_CAP_REAP_AFTER_DISCONNECT;
            g_object_unref(caps);
            umockdev_ioctl_client_complete(client, 0, 0);
            return TRUE;
        }
        case USBDEVFS_CLAIMINTERFACE:
        case USBDEVFS_RELEASEINTERFACE:
        case USBDEVFS_DISCONNECT_CLAIM:
        case USBDEVFS_SETINTERFACE:
            umockdev_ioctl_client_complete(client, self->gone_ ? -1 : 0, self->gone_ ? ENODEV : 0);
            return TRUE;
        case USBDEVFS_GETDRIVER:
        case USBDEVFS_IOCTL:
            umockdev_ioctl_client_complete(client, -1, ENODATA);  // no kernel driver bound
            return TRUE;
        case USBDEVFS_SUBMITURB: {
            if (self->gone_) {
                umockdev_ioctl_client_complete(client, -1, ENODEV);
                return TRUE;
            }
            UMockdevIoctlData* urbData =
                umockdev_ioctl_data_resolve(arg, 0, sizeof(usbdevfs_urb), nullptr);
            auto* urb = reinterpret_cast<usbdevfs_urb*>(urbData->data);
            if (urb->type != USBDEVFS_URB_TYPE_BULK || urb->endpoint != 0x01) {
                g_object_unref(urbData);
                umockdev_ioctl_client_complete(client, -1, EINVAL);
                return TRUE;
            }
            UMockdevIoctlData* bytes = umockdev_ioctl_data_resolve(
                urbData, G_STRUCT_OFFSET(usbdevfs_urb, buffer), gsize(urb->buffer_length), nullptr);
            const qsizetype taken =
                self->take(reinterpret_cast<const char*>(bytes->data), urb->buffer_length);
            g_object_unref(bytes);
            urb->actual_length = int(taken);
            urb->status = taken == urb->buffer_length ? 0 : -ESHUTDOWN;
            self->done_.push_back(urbData);
            umockdev_ioctl_client_complete(client, 0, 0);
            return TRUE;
        }
        case USBDEVFS_REAPURB:
        case USBDEVFS_REAPURBNDELAY: {
            if (self->done_.empty()) {
                umockdev_ioctl_client_complete(client, -1, self->gone_ ? ENODEV : EAGAIN);
                return TRUE;
            }
            UMockdevIoctlData* urbData = self->done_.front();
            self->done_.pop_front();
            UMockdevIoctlData* slot = umockdev_ioctl_data_resolve(arg, 0, sizeof(void*), nullptr);
            umockdev_ioctl_data_set_ptr(slot, 0, urbData);
            g_object_unref(slot);
            g_object_unref(urbData);
            umockdev_ioctl_client_complete(client, 0, 0);
            return TRUE;
        }
        default:
            umockdev_ioctl_client_complete(client, -1, ENOTTY);
            return TRUE;
    }
}
