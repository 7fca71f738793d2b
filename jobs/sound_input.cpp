#include "jobs/sound_input.h"

#include "sound/files/wave_file.h"
#include "sys/file.h"
#include "sys/path.h"
#include "tone/tone_engine.h"
#include "tone/tone_list_report.h"
#include "tone/tone_list_source.h"

#include <set>

namespace {

constexpr const char* NoDurationText =
    "Tones can only be saved as wav files if they are a fixed duration tone.\n\n"
    "Select the Constant (Specified Duration) or Sweep items, or turn of loop play, from the Tones menu.";

constexpr std::int64_t MaxFrames = 2147483647;
constexpr const char* TooManyFrames = "is too long: more than 2147483647 frames";

SoundInput Refused(std::string reason) {
    return {.source = {}, .refusal = std::move(reason)};
}

SoundInput OpenList(const std::string& path) {
    ToneListReport report;
    SoundInput input{.source = OpenToneList(path, &report), .refusal = {}};
    std::set<std::pair<std::string, std::string>> told;
    for (const ToneListEntry& entry : report.entries)
        if (!entry.problem.empty() && told.emplace(entry.file, entry.problem).second)
            input.warnings.push_back({entry.file, entry.problem});
    if (report.CountMilliseconds() / 1000 > MaxFrames / input.source->sampleRate)
        input.refusal = TooManyFrames;
    input.files = std::move(report.files);
    return input;
}

SoundInput OpenTone(const std::string& path, std::optional<unsigned int> durationMs, SoundLength length) {
    SonvireData tone;
    if (!tone.ReadFromFile(path.c_str()))
        return Refused("is not a whole tone: a tone data file has " + std::to_string(SonvireData::FileBytes) +
                       " bytes");
    const bool isList = tone.waveform == ToneFromList;
    if (durationMs && isList)
        return Refused("plays a list, which has a length of its own: --duration goes with tones");
    if (durationMs)
        tone.SetDuration(*durationMs);
    const bool plays = length == SoundLength::Any || tone.HasFlag(ToneFlagDuration);
    if (!isList || tone.repeat != 0 || !plays)
        return OpenToneInput(tone, length);
    SoundInput input = OpenList(tone.GetListPath());
    if (const std::string reason = WhyUnreadable(tone.GetListPath().c_str()); !reason.empty())
        input.warnings.push_back({tone.GetListPath(), reason});
    return input;
}

SoundInput OpenWave(const std::string& path) {
    const LSoundSource source = LWaveFile::OpenSource(path.c_str());
    if (source->status != SoundUsable)
        return Refused(LWaveFile::ExplainStatus(source->status));
    if (source->GetEndSample() < 0)
        return Refused(TooManyFrames);
    SoundInput input{.source = source, .refusal = {}};
    if (LWaveFile::IsCutShort(path.c_str()))
        input.warnings.push_back({path, LWaveFile::CutShortText});
    return input;
}

} // namespace

SoundInput OpenToneInput(const SonvireData& tone, SoundLength length) {
    if (length == SoundLength::Finite && !tone.IsFinite())
        return Refused(NoDurationText);
    if (const std::string reason = tone.WhyUncountable(); !reason.empty())
        return Refused(reason);
    return {.source = OpenToneEngine(tone), .refusal = {}, .endless = !tone.IsFinite()};
}

SoundInput OpenSoundInput(const std::string& path, std::optional<unsigned int> durationMs,
                          SoundLength length) {
    if (const std::string reason = WhyUnreadable(path.c_str()); !reason.empty())
        return Refused(reason);
    if (HasExtension(path, ".tdf"))
        return OpenTone(path, durationMs, length);
    if (!HasExtension(path, ".tdl") && !HasExtension(path, ".wav"))
        return Refused("is of an unknown type: .tdf, .tdl and .wav files are supported");
    if (durationMs)
        return Refused("has a length of its own: --duration goes with tones");
    return HasExtension(path, ".tdl") ? OpenList(path) : OpenWave(path);
}
