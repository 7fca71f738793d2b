#include "cli/refusal.h"

#include <algorithm>
#include <cstdio>

std::string Printable(std::string name) {
    std::replace_if(
        name.begin(), name.end(), [](unsigned char c) { return c < ' ' || c == 127; }, '?');
    // The control characters of 8 bits, as UTF-8 has them: U+0080 to U+009F.
    for (std::size_t at = 0; (at = name.find('\xC2', at)) != std::string::npos; ++at)
        if (at + 1 < name.size() && static_cast<unsigned char>(name[at + 1]) < 0xA0)
            name.replace(at, 2, "?");
    return name;
}

void Tell(const std::string& file, const std::string& what) {
    std::fprintf(stderr, "sonvire-cli: %s: %s\n", Printable(file).c_str(), what.c_str());
}

int Refuse(const std::string& file, const std::string& reason) {
    Tell(file, reason);
    return ExitFailed;
}

int Misuse(const std::string& reason) {
    std::fprintf(stderr, "sonvire-cli: %s (see sonvire-cli --help)\n", reason.c_str());
    return ExitFailed;
}

void Warn(const std::string& file, const std::string& reason) {
    std::fprintf(stderr, "sonvire-cli: warning: %s: %s\n", Printable(file).c_str(),
                 Printable(reason).c_str());
}
