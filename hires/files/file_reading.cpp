#include "hires/files/file_reading.h"

#include "sound/sound_source.h"

#include <algorithm>

HiresFileReading::HiresFileReading(const std::string& path, int rate)
    : stream(path),
      block(static_cast<std::size_t>(std::max(GetInfo().channels, 1)) * MaxBlockFrames) {
    if (IsOpen() && rate != GetInfo().samplerate)
        converter = std::make_unique<HiresRateConverter>(
            GetInfo().samplerate, rate, GetInfo().channels,
            [this](double* out, std::size_t frames) { return ReadFile(out, frames); });
}

std::size_t HiresFileReading::ReadFile(double* out, std::size_t frames) {
    const sf_count_t got = Sndfile().readf_double(stream.Get(), out, static_cast<sf_count_t>(frames));
    return static_cast<std::size_t>(std::max<sf_count_t>(got, 0));
}

int HiresFileReading::Read(int frames) {
    const auto wanted = static_cast<std::size_t>(frames);
    const std::size_t there =
        converter ? converter->Read(block.data(), wanted) : ReadFile(block.data(), wanted);
    const auto channels = static_cast<std::size_t>(GetInfo().channels);
    std::fill_n(&block[there * channels], (wanted - there) * channels, 0.0);
    return static_cast<int>(there);
}

bool HiresFileReading::IsLengthGuessed() const {
    const int type = GetInfo().format & SF_FORMAT_TYPEMASK;
    return type == SF_FORMAT_MPEG || type == SF_FORMAT_OGG;
}

bool HiresFileReading::HasMore() const {
    constexpr std::int64_t MostBehind = 1024; // of tags
    return IsLengthGuessed() && stream.CountUnread() > MostBehind;
}
