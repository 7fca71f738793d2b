#pragma once

/// From here on Ctrl-C, a request to terminate and a closed terminal are remembered instead of ending the
/// program, so that a job can end as if its Cancel button had been pressed. A second one ends the program at
/// once.
void CatchInterrupts();
bool IsInterrupted();
