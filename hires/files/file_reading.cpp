#include "hires/files/file_reading.h"

#include "sound/sound_source.h"

#include <algorithm>

HiresFileReading::HiresFileReading(const std::string& path, int rate)
    : stream(path),
      block(static_cast<std::size_t>(std::max(GetInfo().channels, 1)) * MaxBlockFrames) {
    if (IsOpen() && rate != GetInfo().samplerate)
        converter = std::make_unique<HiresRateConverter>(
            GetInfo().samplerate, rate, GetInfo().channels,
            [this](double* out, std::size_t frames) { return stream.Read(out, frames); });
}

int HiresFileReading::Read(int frames) {
    const auto wanted = static_cast<std::size_t>(frames);
    const std::size_t there =
        converter ? converter->Read(block.data(), wanted) : stream.Read(block.data(), wanted);
    const auto channels = static_cast<std::size_t>(GetInfo().channels);
    std::fill_n(&block[there * channels], (wanted - there) * channels, 0.0);
    return static_cast<int>(there);
}
