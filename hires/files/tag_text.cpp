#include "hires/files/tag_text.h"

#include <string_view>

namespace {

/// Whether a character of so many bytes may have this code: the shortest form of what is neither half of a
/// pair nor a code for no character.
bool IsProper(unsigned int code, std::size_t bytes) {
    constexpr unsigned int Lowest[] = {0, 0, 0x80, 0x800, 0x10000};
    const bool isHalf = code >= 0xD800 && code <= 0xDFFF;
    return code >= Lowest[bytes] && code <= 0x10FFFF && !isHalf && code != 0xFFFE && code != 0xFFFF;
}

/// The bytes of the first character; 0 where it is none.
std::size_t CountBytes(std::string_view text) {
    const auto first = static_cast<unsigned char>(text[0]);
    const std::size_t bytes = first < 0x80 ? 1 : first < 0xC0 ? 0 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    if (bytes <= 1 || text.size() < bytes || first >= 0xF8)
        return bytes == 1 ? 1 : 0;
    unsigned int code = first & (0x7FU >> bytes);
    for (const char next : text.substr(1, bytes - 1)) {
        if ((next & 0xC0) != 0x80)
            return 0;
        code = code << 6 | (next & 0x3F);
    }
    return IsProper(code, bytes) ? bytes : 0;
}

} // namespace

std::string MakeTagText(const std::string& text, std::size_t most) {
    std::string made;
    for (std::string_view left = text; !left.empty();) {
        const std::size_t bytes = CountBytes(left);
        const std::string_view next = bytes == 0 ? "?" : left.substr(0, bytes);
        if (made.size() + next.size() > most)
            break;
        made += next;
        left.remove_prefix(next.size());
    }
    return made;
}
