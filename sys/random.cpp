#include "sys/random.h"

#include <ctime>
#include <mutex>
#include <optional>

namespace {

std::mutex mutex;
std::uint32_t lastSeed = 1;
std::optional<std::uint32_t> fixedSeed;

} // namespace

std::uint32_t Randomize() {
    const std::lock_guard lock(mutex);
    if (fixedSeed)
        return (*fixedSeed)++;
    lastSeed =
        static_cast<std::uint32_t>(std::time(nullptr)) ^ static_cast<std::uint32_t>(LRandom(lastSeed).Draw());
    return lastSeed;
}

void FixRandomSeed(std::uint32_t seed) {
    const std::lock_guard lock(mutex);
    fixedSeed = seed;
}
