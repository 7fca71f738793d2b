#pragma once

#include <string>

/// Something that the user should be told, returned as a value: the window shows it in a box, the command
/// line on standard error.
struct LNotice {
    std::string title;
    std::string text;
    bool mayBeLast =
        false; ///< one of a kind that may come in numbers: a box offers Cancel, for no more of them
};
