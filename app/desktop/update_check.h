#pragma once

#include "gui/window.h"
#include "net/version_check.h"

/// Asks the maker's server for the newest version, under a progress dialog, and tells the user about it. A
/// check that is cancelled or fails ends without a word.
void LAboutCheckForVersionUpdate(LWindow& parent);

/// Tells the user whether the version found is newer than this one; if it is, opens the page about it where
/// they ask for that.
/// Kept quirk: versions compare as numbers: 2.2 is newer than 2.14, 2.100 is older.
void TellAboutVersion(LWindow& parent, const LProcessCheckForVersionUpdates& found);
