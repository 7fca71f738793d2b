#pragma once

#include "gui/menu.h"
#include "gui/tool_bar.h"
#include "tone/tone_data.h"

/// What decides which commands make sense.
struct MainState {
    const SonvireData& tone;
    bool selected; ///< at least one row of the list is
    bool playing;
};

/// Enables and marks the items of the main menu, or those that a pop-up menu has of them.
void EnableMenuItems(LMenu& menu, const MainState& state);
/// An item that stands for a mode looks pressed exactly when the mode is on.
void EnableToolBarItems(LToolBar& mainBar, LToolBar& smallBar, const MainState& state);
