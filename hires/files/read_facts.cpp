#include "hires/files/read_facts.h"

#include "hires/files/sound_stream.h"

#include <utility>

namespace {

/// In shorter words than libsndfile's.
constexpr std::pair<int, const char*> SampleNames[] = {
    {SF_FORMAT_PCM_S8, "8 bits"},      {SF_FORMAT_PCM_U8, "8 bits"},  {SF_FORMAT_PCM_16, "16 bits"},
    {SF_FORMAT_PCM_24, "24 bits"},     {SF_FORMAT_PCM_32, "32 bits"}, {SF_FORMAT_FLOAT, "32-bit float"},
    {SF_FORMAT_DOUBLE, "64-bit float"}};

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
    const int samples = format & SF_FORMAT_SUBMASK;
    for (const auto& [of, name] : SampleNames)
        if (of == samples)
            return name;
    return GetName(samples);
}

std::string GetTag(SNDFILE* file, int tag) {
    const char* text = Sndfile().get_string(file, tag);
    return text ? text : "";
}

} // namespace

HiresFileFacts ReadHiresFacts(const std::string& path) {
    HiresSoundStream stream(path);
    if (stream.GetFailure())
        return {.failure = stream.GetFailure()};
    const SF_INFO& info = stream.GetInfo();
    return {.kind = NameContainer(info.format) + ", " + NameSamples(info.format),
            .rate = info.samplerate,
            .channels = info.channels,
            .frames = stream.CountFrames() + stream.CountMissingFrames(),
            .isCutShort = stream.CountMissingFrames() > 0,
            .program = GetTag(stream.Get(), SF_STR_SOFTWARE),
            .comment = GetTag(stream.Get(), SF_STR_COMMENT)};
}
