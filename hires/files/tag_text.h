#pragma once

#include <string>

/// Makes a text proper UTF-8 of `most` bytes at most, by question marks and a cut between characters: file
/// names hold anything, and libsndfile crashes at a FLAC file's tag of other bytes.
std::string MakeTagText(const std::string& text, std::size_t most);
