#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <fstream>
#include <string>
#include <vector>

/// CRC-32 of samples as little-endian 32-bit integers, as tests/reference/model.py prints it.
inline std::uint32_t HashSamples(const std::vector<int>& samples) {
    std::uint32_t crc = 0xFFFFFFFF;
    for (const int sample : samples)
        for (int shift = 0; shift < 32; shift += 8) {
            crc ^= static_cast<std::uint32_t>(sample) >> shift & 0xFF;
            for (int bit = 0; bit < 8; ++bit)
                crc = crc >> 1 ^ (crc & 1 ? 0xEDB88320 : 0);
        }
    return ~crc;
}

/// Expects what tests/reference/model.py works out for its case of this name.
inline void ExpectReference(const std::vector<int>& samples, const std::string& name) {
    std::ifstream file(SONVIRE_REFERENCE_HASHES);
    std::uint32_t hash = 0;
    for (std::string line; line != name && file >> std::hex >> hash;)
        std::getline(file >> std::ws, line);
    ASSERT_TRUE(file) << "the model has no case \"" << name << '"';
    EXPECT_EQ(HashSamples(samples), hash) << name;
}

/// A signal with loud and quiet stretches: `noise` of tests/reference/model.py.
inline std::vector<int> ReferenceNoise(int count, int peak) {
    std::vector<int> samples;
    std::uint32_t x = 1;
    for (int i = 0; i < count; ++i) {
        x = (x * 1103515245u + 12345u) % (1u << 31);
        const auto span = static_cast<std::uint32_t>(2 * peak + 1);
        samples.push_back((static_cast<int>((x >> 8) % span) - peak) >> (i / 3000 % 5));
    }
    return samples;
}
