#include "hires/files/file_source.h"

#include "hires/files/rate_converter.h"
#include "hires/files/sound_stream.h"
#include "hires/files/soxr_library.h"
#include "hires/settings.h"
#include "sound/files/wave_file.h"
#include "sound/sound_source.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

constexpr double FullScale = 2147483648.0;

/// How long the file is at another rate.
__int128 CountFrames(const SF_INFO& info, int rate) {
    return (static_cast<__int128>(info.frames) * rate + info.samplerate / 2) / info.samplerate;
}

LFailure CheckUsable(const HiresSoundStream& stream, int rate) {
    const SF_INFO& info = stream.GetInfo();
    if (stream.GetFailure())
        return stream.GetFailure();
    if (info.channels > 2)
        return "has " + std::to_string(info.channels) + " channels; mono and stereo can be used";
    if (info.samplerate > HiresSettings::HighestRate) // beyond all sense, a converter takes seconds
        return "is at " + std::to_string(info.samplerate) + " Hz; rates up to " +
               std::to_string(HiresSettings::HighestRate) + " Hz can be used";
    if (!stream.TellsLength() || CountFrames(info, rate) > HiresSoundStream::MostFrames)
        return "does not tell how long it is";
    return rate == info.samplerate ? LFailure() : Soxr().GetFailure();
}

bool IsSameFormat(const SF_INFO& a, const SF_INFO& b) {
    return a.samplerate == b.samplerate && a.channels == b.channels && a.frames == b.frames;
}

/// Of such files libsndfile guesses the length from that of the file, or finds the first of several sounds.
bool IsLengthGuessed(const SF_INFO& info) {
    const int type = info.format & SF_FORMAT_TYPEMASK;
    return type == SF_FORMAT_MPEG || type == SF_FORMAT_OGG;
}

/// A file while it is read, at the rate that is wanted.
class Reading {
public:
    Reading(const std::string& path, int rate)
        : stream(path),
          block(static_cast<std::size_t>(std::max(stream.GetInfo().channels, 1)) * MaxBlockFrames) {
        if (IsOpen() && rate != stream.GetInfo().samplerate)
            converter = std::make_unique<HiresRateConverter>(
                stream.GetInfo().samplerate, rate, stream.GetInfo().channels,
                [this](double* out, std::size_t frames) { return ReadFile(out, frames); });
    }

    bool IsOpen() const { return stream.Get() != nullptr; }
    const SF_INFO& GetInfo() const { return stream.GetInfo(); }
    /// True where there is more than was expected.
    bool IsTooLong() const { return IsLengthGuessed(GetInfo()) && stream.CountUnread() > MostBehind; }
    /// The next frames, `MaxBlockFrames` at most, with silence behind the end; `there` is how many there
    /// were.
    const double* Read(std::size_t frames, std::size_t& there) {
        there = converter ? converter->Read(block.data(), frames) : ReadFile(block.data(), frames);
        const auto channels = static_cast<std::size_t>(GetInfo().channels);
        std::fill_n(&block[there * channels], (frames - there) * channels, 0.0);
        return block.data();
    }

private:
    static constexpr std::int64_t MostBehind = 16384; ///< bytes of tags, and of what is read ahead

    std::size_t ReadFile(double* out, std::size_t frames) {
        const sf_count_t got = Sndfile().readf_double(stream.Get(), out, static_cast<sf_count_t>(frames));
        return static_cast<std::size_t>(std::max<sf_count_t>(got, 0));
    }

    HiresSoundStream stream;
    std::vector<double> block;
    std::unique_ptr<HiresRateConverter> converter; ///< at another rate
};

class FileSource : public HiresSource {
public:
    FileSource(const std::string& filePath, const SF_INFO& found, int outRate, int outChannels,
               std::shared_ptr<LSourceNews> sourceNews)
        : HiresSource(outRate, outChannels),
          path(filePath),
          info(found),
          length(static_cast<std::int64_t>(CountFrames(found, outRate))),
          news(std::move(sourceNews)) {}

    void Read(std::int32_t* out, int frames) override;
    std::int64_t GetLength() const override { return length; }

private:
    void Open();
    void ReadBlock(std::int32_t* out, int frames);
    std::int32_t Convert(double value);
    void TellLost(const char* reason) const { news->Tell({path, reason}); }

    std::string path;
    SF_INFO info;
    std::int64_t length, position = 0;
    std::shared_ptr<LSourceNews> news;
    std::unique_ptr<Reading> reading; ///< null while it waits, and where the file is not to be had
    bool exceeds = false;
};

void FileSource::Open() {
    reading = std::make_unique<Reading>(path, rate);
    if (reading->IsOpen() && IsSameFormat(reading->GetInfo(), info))
        return;
    TellLost(reading->IsOpen() ? "has been replaced by another file" : "can't be read any more");
    reading.reset();
}

std::int32_t FileSource::Convert(double value) {
    const double scaled = std::nearbyint(value * FullScale);
    if (scaled >= -FullScale && scaled < FullScale)
        return static_cast<std::int32_t>(scaled);
    // Full scale itself, which a float has and an integer lacks, is no excess.
    exceeds = exceeds || scaled > FullScale || scaled < -FullScale;
    return scaled > 0 ? INT32_MAX : scaled < 0 ? INT32_MIN : 0;
}

void FileSource::ReadBlock(std::int32_t* out, int frames) {
    std::size_t there = 0;
    const double* left = reading->Read(static_cast<std::size_t>(frames), there);
    const std::int64_t lost = length - position - static_cast<std::int64_t>(there);
    if (there < static_cast<std::size_t>(frames) && lost > (IsLengthGuessed(info) ? rate / 4 : 0))
        TellLost(LWaveFile::CutShortText);
    for (int i = 0; i < frames; ++i, left += info.channels) {
        const double right = left[info.channels - 1];
        *out++ = Convert(channels == 1 ? (*left + right) / 2 : *left);
        if (channels == 2)
            *out++ = Convert(right);
    }
}

void FileSource::Read(std::int32_t* out, int frames) {
    if (position == 0)
        Open();
    std::int32_t* const end = out + static_cast<std::ptrdiff_t>(frames) * channels;
    const std::int64_t after = position + frames;
    while (reading && position < std::min(after, length)) {
        const auto now =
            static_cast<int>(std::min(std::int64_t{MaxBlockFrames}, std::min(after, length) - position));
        ReadBlock(out, now);
        out += static_cast<std::ptrdiff_t>(now) * channels;
        position += now;
    }
    std::fill(out, end, 0);
    position = after;
    if (exceeds)
        news->Tell({path, "exceeds full scale and is clipped", false});
    if (position < length)
        return;
    if (reading && reading->IsTooLong())
        TellLost("is longer than it tells; the rest is left out");
    reading.reset();
}

} // namespace

HiresFileInput OpenHiresFile(const std::string& path, std::optional<int> rate, std::optional<int> channels,
                             std::shared_ptr<LSourceNews> news) {
    const HiresSoundStream stream(path);
    const SF_INFO& info = stream.GetInfo();
    const int outRate = rate.value_or(info.samplerate);
    if (LFailure failure = CheckUsable(stream, outRate))
        return {.source = nullptr, .failure = std::move(failure)};
    return {.source = std::make_unique<FileSource>(path, info, outRate, channels.value_or(info.channels),
                                                   std::move(news))};
}
