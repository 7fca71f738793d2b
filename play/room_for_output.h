#pragma once

/// True while this process may have the descriptors and the thread that a sound server's library takes. The
/// libraries end the process where they don't get them. Thread: any. Blocks: no. Allocates: yes.
bool HasRoomForOutput();
