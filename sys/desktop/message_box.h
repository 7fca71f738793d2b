#pragma once

#include <string>

/// Enter takes the first one, but for `NoYes`: there it takes No. `OkFine` is Ok under what is no problem,
/// and comes without a warning sign.
enum class LMessageButtons { Ok, OkFine, OkCancel, YesNo, NoYes, YesNoCancel };
enum class LMessageAnswer { Ok, Cancel, Yes, No };

/// Where message boxes go: a window shows them modally, the command line prints them, a test records them and
/// returns by script. The port that was made last is in use until it is destroyed, then the one before it.
/// One thread only.
class LMessageBoxPort {
public:
    LMessageBoxPort();
    virtual ~LMessageBoxPort();
    LMessageBoxPort(const LMessageBoxPort&) = delete;
    LMessageBoxPort& operator=(const LMessageBoxPort&) = delete;

    /// Returns once the user has answered, with one of the buttons that were offered.
    virtual LMessageAnswer Show(const std::string& title, const std::string& text,
                                LMessageButtons buttons) = 0;

private:
    LMessageBoxPort* previous;
};

/// Shows a message box by the port in use. Without one nothing is shown, and the result is Ok, or No where Ok
/// is not offered.
LMessageAnswer LShowMessageBox(const std::string& title, const std::string& text,
                               LMessageButtons buttons = LMessageButtons::Ok);
