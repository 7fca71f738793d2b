#include "hires/files/piped_file.h"

#include <utility>

bool HiresPipedFile::SeekTo(std::int64_t to) {
    offset = to;
    return to >= 0;
}

LFailure HiresPipedFile::Begin(LOpenFile& pipe) {
    sent = static_cast<std::int64_t>(header.size());
    return pipe.Write(header.data(), header.size());
}

LFailure HiresPipedFile::Write(LOpenFile& pipe, const char* data, std::size_t bytes) {
    const std::int64_t from = std::exchange(offset, offset + static_cast<std::int64_t>(bytes));
    if (sent == 0 && from == 0)
        header.assign(data, bytes);
    if (sent == 0 || from != sent)
        return {};
    sent = offset;
    return pipe.Write(data, bytes);
}
