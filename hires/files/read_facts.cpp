#include "hires/files/read_facts.h"

#include "hires/files/sound_stream.h"

#include <algorithm>
#include <iterator>

namespace {

/// How samples are stored. What is not listed is decoded to 16 bits.
struct Samples {
    int format;                 ///< libsndfile's
    int bits;                   ///< 0 for floating point
    const char* name = nullptr; ///< where it is shorter than libsndfile's
};
constexpr Samples AllSamples[] = {{SF_FORMAT_PCM_S8, 8, "8 bits"},
                                  {SF_FORMAT_PCM_U8, 8, "8 bits"},
                                  {SF_FORMAT_PCM_16, 16, "16 bits"},
                                  {SF_FORMAT_PCM_24, 24, "24 bits"},
                                  {SF_FORMAT_PCM_32, 32, "32 bits"},
                                  {SF_FORMAT_FLOAT, 0, "32-bit float"},
                                  {SF_FORMAT_DOUBLE, 0, "64-bit float"},
                                  {SF_FORMAT_VORBIS, 0},
                                  {SF_FORMAT_OPUS, 0},
                                  {SF_FORMAT_MPEG_LAYER_I, 0},
                                  {SF_FORMAT_MPEG_LAYER_II, 0},
                                  {SF_FORMAT_MPEG_LAYER_III, 0},
                                  {SF_FORMAT_ALAC_20, 24},
                                  {SF_FORMAT_ALAC_24, 24},
                                  {SF_FORMAT_ALAC_32, 32},
                                  {SF_FORMAT_DWVW_24, 24}};

const Samples* FindSamples(int format) {
    const auto* const found =
        std::find_if(std::begin(AllSamples), std::end(AllSamples),
                     [format](const Samples& each) { return each.format == (format & SF_FORMAT_SUBMASK); });
    return found != std::end(AllSamples) ? found : nullptr;
}

int GetBits(int format) {
    const Samples* samples = FindSamples(format);
    return samples ? samples->bits : 16;
}

/// What libsndfile calls a format's container, or its samples.
std::string GetName(int format) {
    SF_FORMAT_INFO info{.format = format, .name = nullptr, .extension = nullptr};
    const int failed = Sndfile().command(nullptr, SFC_GET_FORMAT_INFO, &info, sizeof info);
    return failed == 0 && info.name ? info.name : "unknown";
}

std::string NameContainer(int format) {
    const int container = format & SF_FORMAT_TYPEMASK;
    const std::string name = GetName(container);
    const bool isWave = container == SF_FORMAT_WAV || container == SF_FORMAT_WAVEX;
    return isWave ? "WAVE" : name.substr(0, name.find(" (")); // its maker
}

std::string NameSamples(int format) {
    const Samples* samples = FindSamples(format);
    return samples && samples->name ? samples->name : GetName(format & SF_FORMAT_SUBMASK);
}

std::string GetTag(SNDFILE* file, int tag) {
    const char* text = Sndfile().get_string(file, tag);
    return text ? text : "";
}

} // namespace

HiresFileFacts DescribeSoundStream(const HiresSoundStream& stream) {
    if (stream.GetFailure())
        return {.failure = stream.GetFailure()};
    const SF_INFO& info = stream.GetInfo();
    const std::optional<std::int64_t> length = stream.GetLength();
    const std::int64_t missing = stream.CountMissingFrames();
    return {.kind = NameContainer(info.format) + ", " + NameSamples(info.format),
            .rate = info.samplerate,
            .channels = info.channels,
            .bits = GetBits(info.format),
            .frames = length ? std::optional(*length + missing) : std::nullopt,
            .isCutShort = missing > 0,
            .program = GetTag(stream.Get(), SF_STR_SOFTWARE),
            .comment = GetTag(stream.Get(), SF_STR_COMMENT)};
}

HiresFileFacts ReadHiresFacts(const std::string& path) {
    HiresSoundStream stream(path);
    HiresFileFacts facts = DescribeSoundStream(stream);
    if (!facts.failure && !facts.frames)
        facts.frames = stream.CountFrames();
    return facts;
}
