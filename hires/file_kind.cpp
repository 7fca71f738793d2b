#include "hires/file_kind.h"

#include "hires/sample_bits.h"
#include "sys/path.h"

#include <algorithm>

namespace {

constexpr HiresFileKind Kinds[] = {
    {HiresFileKind::Container::Wave, "WAVE", "a", {".wav"}},
    {HiresFileKind::Container::Flac, "FLAC", "a", {".flac"}},
    {HiresFileKind::Container::Aiff, "AIFF", "an", {".aiff", ".aif"}},
    {HiresFileKind::Container::W64, "W64", "a", {".w64"}},
    {HiresFileKind::Container::Caf, "CAF", "a", {".caf"}},
    {HiresFileKind::Container::Raw, "raw", "a", {".raw"}},
};

/// Frame headers tell rates in Hz up to 16 bits, and in tens of Hz.
bool IsFlacRate(int rate) {
    return rate <= 65535 || (rate <= 655350 && rate % 10 == 0);
}

/// What it holds at most; null where that is enough for `format`.
const char* FindFlacLimit(const HiresFileFormat& format) {
    if (format.samples != HiresSamples::Int16 && format.samples != HiresSamples::Int24)
        return "holds 16 or 24 bits";
    if (!IsFlacRate(format.rate))
        return "holds rates up to 65535 Hz, and multiples of 10 Hz up to 655350 Hz";
    return format.frames < std::int64_t{1} << 36 ? nullptr : "holds 2^36 frames";
}

} // namespace

std::span<const HiresFileKind> HiresFileKind::GetAll() {
    return Kinds;
}

const HiresFileKind* HiresFileKind::Find(const std::string& path) {
    for (const HiresFileKind& kind : Kinds)
        for (const char* extension : kind.extensions)
            if (extension && HasExtension(path, extension))
                return &kind;
    return nullptr;
}

std::string HiresFileKind::ListExtensions() {
    std::string all;
    for (const HiresFileKind& kind : Kinds) {
        const bool isLast = &kind == std::end(Kinds) - 1;
        all += (all.empty() ? "" : isLast ? " or " : ", ") + std::string(kind.extensions[0]);
    }
    return all;
}

LFailure HiresFileKind::Check(const HiresFileFormat& format) const {
    const char* limit = nullptr;
    if (container == Container::Flac)
        limit = FindFlacLimit(format);
    else if (container == Container::Aiff && IsBeyond4GiB(format))
        limit = "holds 4 GiB";
    return limit ? LFailure(std::string("is ") + article + " " + name + " file, which " + limit) : LFailure();
}
