#pragma once

#include "sys/message_box.h"

/// Shows message boxes modally over the window that is active.
class LQtMessageBoxes : public LMessageBoxPort {
public:
    LMessageAnswer Show(const std::string& title, const std::string& text, LMessageButtons buttons) override;
};
