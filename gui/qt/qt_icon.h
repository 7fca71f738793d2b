#pragma once

#include <QIcon>

#include <string>

/// The picture of this name in the colour of the text on buttons, whatever the theme is at the time; an empty
/// icon where there is none. Pictures are drawn in `currentColor` and are sharp at every size.
QIcon MakeIcon(const std::string& name);
