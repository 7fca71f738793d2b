#pragma once

#include "gui/key_map.h"
#include "gui/menu.h"
#include "gui/tool_bar.h"

// The tables of the main window.

/// File, Edit, View, Tone and Playback, then what every program has.
std::span<const LMenuEntry> GetMainMenu();
/// What a right click on the list shows.
std::span<const LMenuEntry> GetListMenu();

/// What a right click on the wave and the spectrum shows.
std::span<const LMenuEntry> GetSoundMenu();

/// With labels, at the top of the window.
std::span<const LToolBarItem> GetMainToolBar();
/// Small icons alone, above the list.
std::span<const LToolBarItem> GetSmallToolBar();

std::span<const LKeyMapEntry> GetMainKeys();
