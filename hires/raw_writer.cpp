#include "hires/raw_writer.h"

#include "hires/pack_samples.h"
#include "hires/sample_bits.h"
#include "sound/sound_source.h"

#include <algorithm>

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

LFailure HiresRawWriter::Write(const std::int32_t* samples, int frames) {
    for (int done = 0; done < frames && !failure;) {
        const int now = std::min(frames - done, MaxBlockFrames);
        quantizer.Quantize(samples + std::ptrdiff_t{done} * format.channels, quantized.data(),
                           now * format.channels);
        PackSamples(format.samples, quantized.data(), now * format.channels, packed.data());
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
