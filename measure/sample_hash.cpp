#include "measure/sample_hash.h"

#include "sys/shared_library.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <openssl/evp.h>

namespace {

/// The functions of libcrypto that are used, under their names without "EVP_".
struct CryptoLibrary : LSharedLibrary {
    CryptoLibrary() : LSharedLibrary("libcrypto.so.3") {}

    decltype(&EVP_MD_CTX_new) MD_CTX_new = Find("EVP_MD_CTX_new");
    decltype(&EVP_MD_CTX_free) MD_CTX_free = Find("EVP_MD_CTX_free");
    decltype(&EVP_sha256) sha256 = Find("EVP_sha256");
    decltype(&EVP_DigestInit_ex) DigestInit_ex = Find("EVP_DigestInit_ex");
    decltype(&EVP_DigestUpdate) DigestUpdate = Find("EVP_DigestUpdate");
    decltype(&EVP_DigestFinal_ex) DigestFinal_ex = Find("EVP_DigestFinal_ex");
};

const CryptoLibrary& Crypto() {
    static const CryptoLibrary library;
    return library;
}

template <int Bytes>
void Store(std::uint32_t word, char* out) {
    for (int i = 0; i < Bytes; ++i)
        out[i] = static_cast<char>(word >> (8 * i));
}

/// False where a sample is none of these integers.
template <int Bytes>
bool PackIntegers(std::span<const double> samples, char* out) {
    constexpr double Scale = std::uint32_t{1} << (8 * Bytes - 1);
    constexpr std::uint32_t Offset = Bytes == 1 ? 0x80 : 0;
    bool isExact = true;
    for (const double sample : samples) {
        const double scaled = sample * Scale;
        const auto whole = static_cast<std::int32_t>(std::max(-Scale, std::min(Scale - 1, scaled)));
        isExact &= static_cast<double>(whole) == scaled;
        Store<Bytes>(static_cast<std::uint32_t>(whole) + Offset, out);
        out += Bytes;
    }
    return isExact;
}

bool PackFloats(std::span<const double> samples, char* out) {
    bool isExact = true;
    for (const double sample : samples) {
        const float rounded = static_cast<float>(sample) + 0.0F; // there is but one zero
        isExact &= rounded == sample;
        Store<4>(std::bit_cast<std::uint32_t>(rounded), out);
        out += 4;
    }
    return isExact;
}

} // namespace

struct SampleHash::Digest {
    Digest() { Crypto().DigestInit_ex(context, Crypto().sha256(), nullptr); }
    ~Digest() { Crypto().MD_CTX_free(context); }
    Digest(const Digest&) = delete;
    Digest& operator=(const Digest&) = delete;

    EVP_MD_CTX* const context = Crypto().MD_CTX_new();
};

LFailure SampleHash::Check() {
    return Crypto().GetFailure();
}

SampleHash::Packer SampleHash::FindPacker(int bits) {
    switch (bits) {
    case 0:
        return PackFloats;
    case 8:
        return PackIntegers<1>;
    case 16:
        return PackIntegers<2>;
    case 24:
        return PackIntegers<3>;
    default:
        return PackIntegers<4>;
    }
}

SampleHash::SampleHash(int bits)
    : pack(FindPacker(bits)),
      bytes(bits == 0 ? 4 : static_cast<std::size_t>(bits) / 8),
      digest(std::make_unique<Digest>()) {}

SampleHash::~SampleHash() = default;
SampleHash::SampleHash(SampleHash&& other) noexcept = default;

void SampleHash::Add(std::span<const double> samples) {
    packed.resize(std::max(packed.size(), samples.size() * bytes));
    isExact &= pack(samples, packed.data());
    Crypto().DigestUpdate(digest->context, packed.data(), samples.size() * bytes);
}

std::string SampleHash::Finish() {
    std::array<unsigned char, EVP_MAX_MD_SIZE> sum{};
    unsigned int length = 0;
    Crypto().DigestFinal_ex(digest->context, sum.data(), &length);
    std::string digits;
    for (const unsigned char byte : std::span(sum).first(isExact ? length : 0))
        for (const int half : {byte >> 4, byte & 0xF})
            digits += "0123456789abcdef"[half];
    return digits;
}
