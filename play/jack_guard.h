#pragma once

/// True while a JACK server of this user runs, the one that `JACK_DEFAULT_SERVER` names. JACK's own library
/// is not asked: where there is no server it writes to standard error, and where a program was once killed
/// while it asked, it hangs for good. Any thread; reads a file of the system.
///
/// Wherever this is linked in, nothing in the program reaches the library's way to a server,
/// `jack_client_open`, while there is none.
bool IsJackRunning();
