#pragma once

#include "gui/key_map.h"

class QKeyEvent;

/// The key as key maps know it. With the desktop's own key held it is no key of ours: both fields are 0.
LKeyPress ToKeyPress(const QKeyEvent& event);

/// True for a key that no input of text or value has a use for: Escape, F1, and any with Ctrl.
bool IsForTheWindow(const LKeyPress& key);
