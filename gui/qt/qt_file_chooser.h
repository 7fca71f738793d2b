#pragma once

#include "gui/file_chooser.h"

#include <optional>

/// Asks for a file with the desktop's own dialog. It does not ask about replacing a file.
std::optional<LChosenFile> ShowFileChooser(const LFileChooser& chooser, LFilePurpose purpose);
