#pragma once

#include "gui/window.h"

/// A page of data/help/.
enum class HelpPage { Start, Lists, Settings, Keys };

/// Opens a page of the help with the user's browser; says where it is where there is none.
void OpenHelpPage(LWindow& parent, HelpPage page);
