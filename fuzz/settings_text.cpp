// Any bytes as a settings file, up to the first zero byte, and as a value that is stored in it.

#include "sys/desktop/settings_text.h"

#include <cstdint>
#include <cstdlib>

namespace {

void Expect(bool holds) {
    if (!holds)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(data, data + size);
    const std::size_t end = bytes.find('\0');
    const std::string value = end == std::string::npos ? "" : bytes.substr(end + 1);
    LSettingsText text(bytes.substr(0, end));
    const auto other = text.Find("a", "b");
    text.Set("Settings", "a key", value);
    const LSettingsText again(text.GetContent());
    Expect(again.Find("Settings", "a key") == value);
    Expect(again.Find("a", "b") == other);
    text.Remove("Settings", "a key");
    Expect(!LSettingsText(text.GetContent()).Find("Settings", "a key"));
    return 0;
}
