#include "hires/files/file_source.h"

#include "hires/files/file_reading.h"
#include "hires/files/soxr_library.h"
#include "hires/settings.h"
#include "sound/files/wave_file.h"
#include "sound/sound_source.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace {

constexpr double FullScale = 2147483648.0;

/// How long the file is at another rate.
std::int64_t CountFrames(HiresSoundStream& stream, int rate) {
    const int own = stream.GetInfo().samplerate;
    const __int128 frames = stream.CountFrames() + stream.CountMissingFrames();
    return static_cast<std::int64_t>((frames * rate + own / 2) / own);
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
    return rate == info.samplerate ? LFailure() : Soxr().GetFailure();
}

bool IsSameFormat(const SF_INFO& a, const SF_INFO& b) {
    return a.samplerate == b.samplerate && a.channels == b.channels && a.frames == b.frames;
}

/// Rounds them; what is no number is silence. True where some exceed full scale, and are clipped; full scale
/// itself, which a float has and an integer lacks, is no excess.
bool ToIntegers(const double* samples, int count, std::int32_t* out) {
    constexpr double Rounding = 0x1.8p52; // what is added to it is rounded to an integer in its lowest bits
    bool exceeds = false;
    for (int i = 0; i < count; ++i) {
        const double scaled = samples[i] * FullScale;
        const double clipped = std::max(std::min(scaled, FullScale - 1), -FullScale);
        const auto rounded = static_cast<std::int32_t>(std::bit_cast<std::int64_t>(clipped + Rounding));
        out[i] = scaled == scaled ? rounded : 0;
        exceeds |= std::abs(scaled) > FullScale;
    }
    return exceeds;
}

class FileSource : public HiresSource {
public:
    FileSource(const std::string& filePath, const SF_INFO& found, int outRate, std::int64_t frames,
               std::shared_ptr<LSourceNews> sourceNews)
        : HiresSource(outRate, found.channels),
          path(filePath),
          info(found),
          length(frames),
          news(std::move(sourceNews)) {}

    void Read(std::int32_t* out, int frames) override;
    std::int64_t GetLength() const override { return length; }

private:
    void Open();
    void ReadBlock(std::int32_t* out, int frames);
    void Close();
    void TellLost(const char* reason) const { news->Tell({path, reason}); }

    std::string path;
    SF_INFO info;
    std::int64_t length, position = 0;
    std::shared_ptr<LSourceNews> news;
    std::unique_ptr<HiresFileReading> reading; ///< null while it waits, and where the file is not to be had
};

void FileSource::Open() {
    reading = std::make_unique<HiresFileReading>(path, rate);
    if (reading->IsOpen() && IsSameFormat(reading->GetInfo(), info))
        return;
    TellLost(reading->IsOpen() ? "has been replaced by another file" : "can't be read any more");
    reading.reset();
}

void FileSource::Close() {
    if (reading && reading->HasMore())
        TellLost("is longer than it tells; the rest is left out");
    reading.reset();
}

void FileSource::ReadBlock(std::int32_t* out, int frames) {
    const int there = reading->Read(frames);
    if (there < frames && length - position - there > (reading->IsLengthGuessed() ? rate / 4 : 0))
        news->Tell({path, LWaveFile::CutShortText, !reading->IsCutShort()});
    if (ToIntegers(reading->GetBlock(), frames * channels, out))
        news->Tell({path, "exceeds full scale and is clipped", false});
    position += frames;
}

void FileSource::Read(std::int32_t* out, int frames) {
    if (position == 0)
        Open();
    std::int32_t* const end = out + static_cast<std::ptrdiff_t>(frames) * channels;
    const std::int64_t after = position + frames;
    while (reading && position < std::min(after, length)) {
        const std::int64_t left = std::min(after, length) - position;
        const auto now = static_cast<int>(std::min<std::int64_t>(left, MaxBlockFrames));
        ReadBlock(out, now);
        out += static_cast<std::ptrdiff_t>(now) * channels;
    }
    std::fill(out, end, 0);
    position = after;
    if (position >= length)
        Close();
}

} // namespace

HiresTone OpenHiresFile(const std::string& path, std::optional<int> rate, std::shared_ptr<LSourceNews> news) {
    HiresSoundStream stream(path);
    const SF_INFO& info = stream.GetInfo();
    const int outRate = rate.value_or(info.samplerate);
    if (LFailure failure = CheckUsable(stream, outRate))
        return {.source = nullptr, .failure = std::move(failure)};
    const std::int64_t length = CountFrames(stream, outRate);
    if (length > HiresSoundStream::MostFrames)
        return {.source = nullptr, .failure = "is too long"};
    return {.source = std::make_unique<FileSource>(path, info, outRate, length, std::move(news))};
}
