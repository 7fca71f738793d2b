#pragma once

/// Registers the program for the user who runs it: copies its icons, file types and desktop entry from the
/// shared data folder into the user's, where the entry gets the path of this very program, and has the
/// desktop's caches refreshed by what is installed to do that. Once more does no harm. Prints what was
/// registered on standard output, and what failed on standard error, where it stops. Needs neither a display
/// nor a toolkit. Returns the exit status of the process: 0, or 1 where something failed.
int InstallerMain();
