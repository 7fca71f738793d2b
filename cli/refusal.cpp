#include "refusal.h"

#include <cstdio>

int Refuse(const std::string& file, const std::string& reason) {
    std::fprintf(stderr, "sonvire-cli: %s: %s\n", file.c_str(), reason.c_str());
    return ExitFailed;
}

int Misuse(const std::string& reason) {
    std::fprintf(stderr, "sonvire-cli: %s (see sonvire-cli --help)\n", reason.c_str());
    return ExitFailed;
}

void Warn(const std::string& file, const std::string& reason) {
    std::fprintf(stderr, "sonvire-cli: warning: %s: %s\n", file.c_str(), reason.c_str());
}
