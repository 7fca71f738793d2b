#include "hires/random.h"

HiresRandom::HiresRandom(std::uint64_t seed) {
    for (std::uint64_t& each : state) {
        seed += 0x9E3779B97F4A7C15;
        std::uint64_t mixed = (seed ^ seed >> 30) * 0xBF58476D1CE4E5B9;
        mixed = (mixed ^ mixed >> 27) * 0x94D049BB133111EB;
        each = mixed ^ mixed >> 31;
    }
}
