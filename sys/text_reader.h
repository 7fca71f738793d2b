#pragma once

#include "sys/file.h"

#include <array>
#include <cstddef>
#include <string>

/// Reads a text file line by line. A line ends with CR, LF, CR LF or LF CR; of a longer line the first 259
/// characters count.
class LTextReader {
public:
    static constexpr std::size_t MaxLineLength = 259;

    /// A file that can't be opened, is held by another program or is no regular file has no lines.
    explicit LTextReader(const char* path);

    /// Why it has no lines.
    LFailure GetFailure() const;
    /// False at the end of the file. What stands behind the last line end is a line only if it is not empty.
    [[nodiscard]] bool ReadLine(std::string& line);

private:
    static constexpr int EndOfFile = -1;
    /// No text of use is as long; what follows is left out.
    static constexpr std::size_t MaxBytes = 64 << 20;

    int Peek();
    int Next();

    LLockedReadFile file;
    bool readable;
    std::array<char, 4096> buffer;
    std::size_t filled = 0, used = 0, total = 0;
};
