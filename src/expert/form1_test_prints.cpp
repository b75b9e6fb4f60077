// The development tests of the expert screen. They trap nothing: a failure of
// the port or of a code ends the program with the system's run-time error.
#include "expert/form1.h"
#include "expert/test_jobs.h"
#include "print/channels.h"
#include "print/mscomm.h"
#include "shell/context.h"

void Form1::runSerialJob(const Job& job) {
    fatalOnFailure([&] {
        openPort(*port_);
        sendSerial(*port_, job, ctx.mode_accent, [this] { ctx.ui.letEventsRun(); });
        port_->setPortOpen(false);
    });
}

void Form1::runUsbJob(const Job& job) {
    fatalOnFailure([&] {
        UsbChannel usb(ctx.platform.usb(), [this] { ctx.bulle(QStringLiteral(" "), "2"); });
        usb.send(job, ctx.mode_accent, ctx.famille_usb, [this] { ctx.ui.letEventsRun(); });
    });
}

void Form1::test_code_barres() {
    runSerialJob(test_jobs::code_barres(ticketFields()));
}
void Form1::test_ean_serie() {
    runSerialJob(test_jobs::ean_serie(ticketFields()));
}
void Form1::test_ean_usb() {
    runUsbJob(test_jobs::ean_usb());
}
void Form1::test_graphique_serie() {
    runSerialJob(test_jobs::graphique_serie(ticketFields()));
}
void Form1::test_graphique_usb() {
    runUsbJob(test_jobs::graphique_usb());
}
void Form1::test_cheque(int number) {
    runSerialJob(test_jobs::cheque(number, ctx.today()));
}
