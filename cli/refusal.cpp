#include "cli/refusal.h"

#include <algorithm>
#include <cstdio>

std::string Printable(std::string name) {
    std::replace_if(
        name.begin(), name.end(), [](unsigned char c) { return c < ' ' || c == 127; }, '?');
    return name;
}

int Refuse(const std::string& file, const std::string& reason) {
    std::fprintf(stderr, "sonvire-cli: %s: %s\n", Printable(file).c_str(), reason.c_str());
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
