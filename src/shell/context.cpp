#include "shell/context.h"

#include "shell/choix_printer.h"
#include "shell/image_banks.h"
#include "shell/printer_object.h"

Context::Context(Platform& p, Interaction& i) : platform(p), ui(i) {}

Context::~Context() = default;

Icc& Context::icc() {
    if (!icc_) icc_ = std::make_unique<Icc>(platform);
    return *icc_;
}

Icr& Context::icr() {
    if (!icr_) icr_ = std::make_unique<Icr>();
    return *icr_;
}

int Context::form97(const QString& message, int kind) {
    msg_dialogue = message;
    retour_dialogue = kind;
    ui.showDialog();
    return retour_dialogue;
}

PrinterObject& Context::Printer() {
    if (!printer_)
        printer_ = std::make_unique<PrinterObject>(platform.printers(), imprimante_defaut(*this));
    return *printer_;
}

void Context::setPrinter(std::unique_ptr<PrinterObject> printer) {
    printer_ = std::move(printer);
}
