#pragma once

enum class LStatusKind {
    Text,    ///< the first text takes the space that the others leave
    Level,   ///< a level meter with a bar for each channel
    Chooser, ///< one of several texts; its value is the index
    Slider,  ///< its value is a number in a range
};

/// One field of a status bar, from left to right. Afterwards it is a control like any other, reached by its
/// id.
struct LStatusItem {
    int id;
    LStatusKind kind;
    const char* toolTip = "";
    const char* widestText = ""; ///< the field is wide enough for this
};
