#pragma once

#include "sys/failure.h"

#include <memory>
#include <span>
#include <string>
#include <vector>

/// The SHA-256 of samples as a WAVE file stores them: all channels of a frame, then the next frame, as
/// little-endian integers of 8 bits (unsigned), 16, 24 or 32, or as floats of 32. Thread: one at a time.
class SampleHash {
public:
    /// That libcrypto is not installed, without which there must be no hash.
    static LFailure Check();

    /// `bits` are those of integers; 0 stands for floats.
    explicit SampleHash(int bits);
    ~SampleHash();
    SampleHash(SampleHash&& other) noexcept;

    /// Full scale is 1.
    void Add(std::span<const double> samples);
    /// Once, behind all samples: 64 hexadecimal digits; empty where one of them is no such integer or float.
    std::string Finish();

private:
    struct Digest;
    using Packer = bool (*)(std::span<const double> samples, char* out);
    static Packer FindPacker(int bits);

    Packer pack;
    std::size_t bytes; ///< of a sample
    bool isExact = true;
    std::vector<char> packed;
    std::unique_ptr<Digest> digest;
};
