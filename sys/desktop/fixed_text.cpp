#include "sys/desktop/fixed_text.h"

#include <algorithm>
#include <charconv>

LFixedText& LFixedText::Add(std::string_view more) {
    const std::size_t taken = std::min(more.size(), text.size() - 1 - length);
    std::copy_n(more.data(), taken, text.data() + length);
    length += taken;
    text[length] = 0;
    return *this;
}

LFixedText& LFixedText::AddNumber(std::int64_t number, std::size_t digits) {
    std::array<char, 24> written{};
    const char* end = std::to_chars(written.begin(), written.end(), number).ptr;
    const auto count = static_cast<std::size_t>(end - written.data());
    for (std::size_t i = count; i < digits; ++i)
        Add("0");
    return Add({written.data(), count});
}

LFixedText& LFixedText::AddHex(std::uint64_t number) {
    std::array<char, 20> written{};
    const char* end = std::to_chars(written.begin(), written.end(), number, 16).ptr;
    return Add("0x").Add({written.data(), static_cast<std::size_t>(end - written.data())});
}
