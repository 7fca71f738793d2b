#pragma once

/// The extensions of the program's files. No kind of file is saved under a name that ends in another's.
inline constexpr const char* FileKinds[] = {".tdf", ".tdl", ".wav"};
