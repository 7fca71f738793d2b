#pragma once

#include <string>

/// The address of a local file, "file:///..." with what an address can't hold percent-encoded. The path is
/// absolute.
std::string MakeFileUrl(const std::string& path);
