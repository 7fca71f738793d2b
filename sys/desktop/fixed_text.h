#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

/// A text that is put together in memory of its own, without allocating any: also by a signal handler. What
/// does not fit is left out.
class LFixedText {
public:
    LFixedText& Add(std::string_view more);
    /// In decimal digits, with zeros before them up to this many.
    LFixedText& AddNumber(std::int64_t number, std::size_t digits = 1);
    /// In hexadecimal digits, with "0x" before them.
    LFixedText& AddHex(std::uint64_t number);
    void Clear() { text[length = 0] = 0; }

    std::string_view View() const { return {text.data(), length}; }
    /// Ends with a zero byte.
    const char* CString() const { return text.data(); }

private:
    std::array<char, 4096> text{};
    std::size_t length = 0;
};
