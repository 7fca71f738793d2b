#pragma once

#include "sys/desktop/message_box.h"

/// Prints message boxes on standard error; whatever may be answered is answered with the first button.
class PrintedMessages : public LMessageBoxPort {
public:
    LMessageAnswer Show(const std::string& title, const std::string& text, LMessageButtons buttons) override;
};
