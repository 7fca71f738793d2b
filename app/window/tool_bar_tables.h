#pragma once

#include "gui/tool_bar.h"

/// With labels, at the top of the window.
std::span<const LToolBarItem> GetMainToolBar();
/// Small icons alone, above the list.
std::span<const LToolBarItem> GetSmallToolBar();
