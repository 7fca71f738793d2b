#include "cli/printed_messages.h"

#include "cli/refusal.h"

LMessageAnswer PrintedMessages::Show(const std::string& title, const std::string& text,
                                     LMessageButtons buttons) {
    Warn(title, text);
    const bool okOffered = buttons == LMessageButtons::Ok || buttons == LMessageButtons::OkCancel;
    return okOffered ? LMessageAnswer::Ok : LMessageAnswer::Yes;
}
