#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

/// The fuzzer's bytes as a file in memory, for code that takes a path.
class InputFile {
public:
    InputFile(const std::uint8_t* data, std::size_t size) : descriptor(memfd_create("input", MFD_CLOEXEC)) {
        [[maybe_unused]] const ssize_t written = write(descriptor, data, size);
    }
    ~InputFile() { close(descriptor); }
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;

    std::string GetPath() const { return "/proc/self/fd/" + std::to_string(descriptor); }

private:
    int descriptor;
};
