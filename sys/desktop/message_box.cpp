#include "sys/desktop/message_box.h"

namespace {

LMessageBoxPort* portInUse = nullptr;

} // namespace

LMessageBoxPort::LMessageBoxPort() : previous(portInUse) {
    portInUse = this;
}

LMessageBoxPort::~LMessageBoxPort() {
    portInUse = previous;
}

LMessageAnswer LShowMessageBox(const std::string& title, const std::string& text, LMessageButtons buttons) {
    if (portInUse)
        return portInUse->Show(title, text, buttons);
    using enum LMessageButtons;
    const bool okOffered = buttons == Ok || buttons == OkFine || buttons == OkCancel;
    return okOffered ? LMessageAnswer::Ok : LMessageAnswer::No;
}
