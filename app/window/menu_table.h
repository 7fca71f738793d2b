#pragma once

#include "gui/menu.h"

/// File, Tone and Playback, then what every program has.
std::span<const LMenuEntry> GetMainMenu();
/// What a right click on the list shows.
std::span<const LMenuEntry> GetListMenu();
