#pragma once

#include "gui/key_map.h"
#include "gui/menu.h"
#include "gui/tool_bar.h"

#include <algorithm>
#include <array>

// The tables of the main window.

/// File, Tone and Playback, then what every program has.
std::span<const LMenuEntry> GetMainMenu();
/// What a right click on the list shows.
std::span<const LMenuEntry> GetListMenu();

/// With labels, at the top of the window.
std::span<const LToolBarItem> GetMainToolBar();
/// Small icons alone, above the list.
std::span<const LToolBarItem> GetSmallToolBar();

std::span<const LKeyMapEntry> GetMainKeys();

/// Tables behind one another.
template <class Row, std::size_t... Sizes>
constexpr auto JoinTables(const std::array<Row, Sizes>&... parts) {
    std::array<Row, (Sizes + ...)> all{};
    auto next = all.begin();
    ((next = std::copy(parts.begin(), parts.end(), next)), ...);
    return all;
}
