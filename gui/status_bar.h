#pragma once

enum class LStatusKind {
    Text,    ///< the first text takes the space that the others leave
    Remark,  ///< a text that takes room only while there is one
    Level,   ///< a level meter
    Chooser, ///< one of several texts; its value is the index
    Toggle,  ///< a button with a picture; its value, which a click leaves to the window, is 1 or 0
    Slider,  ///< its value is a number in a range; a double click makes it the largest
};

/// One field of a status bar, from left to right. Afterwards it is a control like any other, reached by its
/// id. Where the window is too narrow for all of them, the first text gives way, then choosers, then meters,
/// other texts, remarks and sliders.
struct LStatusItem {
    int id;
    LStatusKind kind;
    const char* toolTip = "";    ///< and what a screen reader calls the field
    const char* widestText = ""; ///< the field is wide enough for this
    const char* picture = "";    ///< of a toggle; the one of the value 1 has "-on" behind its name
};
