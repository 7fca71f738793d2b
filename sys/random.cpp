#include "sys/random.h"

#include <chrono>
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
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    const std::int64_t nanoseconds = std::chrono::nanoseconds(now).count();
    lastSeed = static_cast<std::uint32_t>(nanoseconds ^ nanoseconds >> 32) ^
               static_cast<std::uint32_t>(LRandom(lastSeed).Draw());
    return lastSeed;
}

void FixRandomSeed(std::uint32_t seed) {
    const std::lock_guard lock(mutex);
    fixedSeed = seed;
}
