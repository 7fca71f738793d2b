#pragma once

#include <optional>
#include <string>

class LWindow;

/// Asks for the length of a silence, and returns the entry that stands for it; nothing where the box is
/// cancelled, or `entry`, the silence as it is now, is left as it stands. Empty for a new one.
std::optional<std::string> AskForSilence(LWindow& parent, const std::string& entry);
