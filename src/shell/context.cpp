#include "shell/context.h"

#include "shell/image_banks.h"

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
