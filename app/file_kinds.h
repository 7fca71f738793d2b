#pragma once

#include "gui/file_chooser.h"

/// The extensions of the program's files. No kind of file is saved under a name that ends in another's.
std::span<const char* const> GetFileKinds();

/// For a chooser that saves a sound: behind `filters`, the kinds of files that only high quality writes.
std::vector<LFileFilter> AddHighQuality(std::vector<LFileFilter> filters);

/// For a chooser of a list's entries: what only high quality reads in a list.
LFileFilter GetSoundFilter();
