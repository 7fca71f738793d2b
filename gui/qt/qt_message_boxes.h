#pragma once

#include "gui/qt/qt_session_end.h"
#include "sys/desktop/message_box.h"

/// Shows message boxes modally over the window that is active.
class LQtMessageBoxes : public LMessageBoxPort {
public:
    /// Once the session ends, boxes are answered with their least consequence instead of shown.
    explicit LQtMessageBoxes(const LQtSessionEnd& end) : sessionEnd(end) {}

    LMessageAnswer Show(const std::string& title, const std::string& text, LMessageButtons buttons) override;

private:
    const LQtSessionEnd& sessionEnd;
};
