#pragma once

#include <functional>

/// Runs `work` on a thread of its own that nobody joins: for calls into the outside world that may never
/// return. `work` owns what it touches. The end of the program waits half a second for work that is still
/// going on, and leaves what is stuck behind. False where the system has no thread to give.
bool RunInBackground(std::function<void()> work);

/// Work that calls this lets everything else go first from then on.
void LowerBackgroundPriority();

/// Waits until no background work is going on, for at most `milliseconds`; false on time-out.
bool WaitForBackground(unsigned int milliseconds);
