#pragma once

#include <QIcon>

#include <string>

/// What a pressed item's picture looks like.
enum class LIconLook {
    Usual, ///< like selected text
    Lamp,  ///< lit in green, although its item is disabled
};

/// The picture of this name in the colour of the text on buttons, whatever the theme is at the time; an empty
/// icon where there is none. Pictures are drawn in `currentColor` and are sharp at every size.
QIcon MakeIcon(const std::string& name, LIconLook look = LIconLook::Usual);
