#pragma once

#include "sys/file.h"

/// The extension of the file name at the end of a path, with its dot; empty without one.
inline std::string GetFileExtension(const std::string& path) {
    return GetPathExtension(path.substr(path.rfind('/') + 1));
}
