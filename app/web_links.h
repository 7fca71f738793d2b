#pragma once

#include "gui/window.h"

/// Opens the page of the maker's web site that a standard link of the Help menu leads to, and says its
/// address where there is no browser. False for every other command.
bool OpenWebLink(LWindow& parent, int command);
