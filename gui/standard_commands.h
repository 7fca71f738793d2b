#pragma once

/// The commands that every window knows. Ids from 100 on are a window's own.
enum LStandardCommand : int {
    LCommandNone = 0,
    LCommandOk = 1,
    LCommandCancel = 2,
    LCommandQuit = 8, ///< of the main window, which it closes
    LCommandHelp = 9,
};
