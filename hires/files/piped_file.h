#pragma once

#include "sys/failure.h"
#include "sys/file.h"

#include <cstdint>
#include <string>

/// A file that goes into a pipe, as one who may seek in it sees it. What is written at its beginning is kept
/// and all else dropped, as often as it takes to make the header, which has to be right from the start. From
/// `Begin` on what follows it goes into the pipe, and what is corrected afterwards is dropped.
class HiresPipedFile {
public:
    /// How long what follows the header will be.
    explicit HiresPipedFile(std::int64_t dataBytes) : expected(dataBytes) {}

    /// For the header, with what fills it up to an even one.
    std::int64_t GetLength() const {
        return static_cast<std::int64_t>(header.size()) + expected + (sent == 0 ? expected % 2 : 0);
    }
    std::int64_t GetOffset() const { return offset; }
    bool SeekTo(std::int64_t to);
    /// Writes the header.
    LFailure Begin(LOpenFile& pipe);
    LFailure Write(LOpenFile& pipe, const char* data, std::size_t bytes);

private:
    std::string header;
    std::int64_t expected;
    std::int64_t offset = 0, sent = 0; ///< what has gone into the pipe
};
