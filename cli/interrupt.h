#pragma once

/// For the time of a job: from here on Ctrl-C, a request to terminate and a closed terminal are remembered
/// instead of ending the program, so that a job can end as if its Cancel button had been pressed. The same
/// signal a second time ends the program at once. What the program was started to ignore stays ignored.
void CatchInterrupts();
bool IsInterrupted();
/// Can be read from once the program is interrupted; -1 where the system has none to give.
int GetInterruptDescriptor();
