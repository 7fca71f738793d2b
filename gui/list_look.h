#pragma once

#include <string>

/// A column of a list. Where the columns don't have the room that their texts ask for, the first one gives
/// way before the others do, and texts are elided.
struct LListColumn {
    const char* title;
    bool fills = false;  ///< takes the room that the columns leave, of which there may be some else
    bool values = false; ///< numbers, which stand at the end of the column in digits of equal width
};

enum class LRowShade {
    Alternate, ///< by the row's place: every second one is shaded
    Plain,
    Shaded,
};

/// A small picture before the text of the second column, which says more.
enum class LRowMark { None, Problem, Endless };

/// How a row of a list looks beside its texts.
struct LRowLook {
    LRowShade shade = LRowShade::Alternate;
    LRowMark mark = LRowMark::None;
    std::string toolTip{};
};
