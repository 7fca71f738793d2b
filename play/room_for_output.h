#pragma once

/// True while this process may have the descriptors and the thread that a sound server's library takes. The
/// libraries end the process where they don't get them. Thread: any. Blocks: no. Allocates: yes.
/// `others` is how many descriptors more the process will take before.
bool HasRoomForOutput(int others = 0);
