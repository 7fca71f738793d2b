#include "hires/raw_writer.h"

#include "hires/sample_bits.h"
#include "sound/sound_source.h"

#include <algorithm>
#include <bit>

namespace {

/// The bits that are written, in the lowest places.
std::uint32_t Encode(HiresSamples kind, std::int32_t sample) {
    if (kind == HiresSamples::Float)
        return std::bit_cast<std::uint32_t>(static_cast<float>(sample) * 0x1p-31F);
    return static_cast<std::uint32_t>(sample) >> (32 - GetBits(kind));
}

} // namespace

HiresRawWriter::HiresRawWriter(LReadWriteFile&& opened, const HiresFileFormat& asked)
    : file(std::move(opened)),
      pace(file.GetOffset()),
      format(asked),
      quantizer(GetBits(format.samples), format.dither && format.samples == HiresSamples::Int16, format.seed),
      quantized(static_cast<std::size_t>(MaxBlockFrames * format.channels)),
      packed(static_cast<std::size_t>(MaxBlockFrames * GetFrameBytes(format))),
      failure(file.GetFailure()) {
    if (!failure && file.IsRegular())
        failure = file.Truncate(file.GetOffset());
}

void HiresRawWriter::Pack(const std::int32_t* samples, int count) {
    char* out = packed.data();
    for (int i = 0; i < count; ++i) {
        const std::uint32_t bits = Encode(format.samples, samples[i]);
        for (int shift = 0; shift < GetBits(format.samples); shift += 8)
            *out++ = static_cast<char>(bits >> shift);
    }
}

LFailure HiresRawWriter::Write(const std::int32_t* samples, int frames) {
    for (int done = 0; done < frames && !failure;) {
        const int now = std::min(frames - done, MaxBlockFrames);
        quantizer.Quantize(samples + std::ptrdiff_t{done} * format.channels, quantized.data(),
                           now * format.channels);
        Pack(quantized.data(), now * format.channels);
        failure = file.Write(packed.data(), static_cast<std::size_t>(now * GetFrameBytes(format)));
        pace.KeepUp(file, file.GetOffset());
        done += now;
    }
    return failure;
}

LFailure HiresRawWriter::Finish() {
    LFailure unclosed = file.Close();
    if (!failure)
        failure = std::move(unclosed);
    return failure;
}
