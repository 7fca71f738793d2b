#include "jobs/sound_input.h"

#include "sound/files/wave_file.h"
#include "sys/file.h"
#include "sys/path.h"
#include "tone/tone_engine.h"
#include "tone/tone_list_report.h"
#include "tone/tone_list_source.h"

#include <limits>
#include <set>

namespace {

constexpr int MaxFrames = std::numeric_limits<int>::max();
constexpr const char* TooManyFrames = "is too long: more than 2147483647 frames";

SoundInput Refused(LFailure failure) {
    SoundInput refused;
    refused.failure = std::move(failure);
    return refused;
}

/// Numbers the entries of a list and of the lists in it.
class EntryNumber {
public:
    void MoveTo(const ToneListEntry& entry) {
        places.resize(static_cast<std::size_t>(entry.depth) + 1);
        ++places.back();
    }
    std::string ToText() const {
        std::string text;
        for (const int place : places)
            text += (text.empty() ? "" : ".") + std::to_string(place);
        return text;
    }

private:
    std::vector<int> places; ///< by depth
};

/// What can be counted of a list is less than it may last.
LFailure CheckPlayable(const SoundInput& input, SoundLength length) {
    const bool counts = length == SoundLength::Finite || input.endless || input.frames <= MaxFrames;
    return counts ? LFailure() : TooManyFrames;
}

SoundInput MakeListInput(const LSoundSource& source, bool loops, ToneListReport report, SoundLength length) {
    SoundInput input;
    input.source = source;
    input.isList = true;
    input.endless = loops;
    input.warnings = CollectWarnings(report);
    input.frames = static_cast<double>(report.CountMilliseconds()) * source->sampleRate / 1000;
    input.failure = CheckPlayable(input, length);
    input.isNeverLeft = report.isNeverLeft;
    input.notices = std::move(report.notices);
    input.files = std::move(report.files);
    input.news = std::move(report.news);
    return input;
}

SoundInput OpenList(const std::string& path, SoundLength length) {
    ToneListReport report;
    const LSoundSource source = OpenToneList(path, &report);
    return MakeListInput(source, false, std::move(report), length);
}

SoundInput OpenListTone(const SonvireData& tone, SoundLength length) {
    ToneListReport report;
    const LSoundSource source = OpenToneEngine(tone, &report);
    SoundInput input = MakeListInput(source, tone.repeat != 0, std::move(report), length);
    WarnOfUnreadable(tone, input);
    return input;
}

SoundInput OpenTone(const std::string& path, std::optional<unsigned int> durationMs, SoundLength length) {
    SonvireData tone;
    if (LFailure failure = tone.ReadFromFile(path.c_str()))
        return Refused(std::move(failure));
    if (durationMs && tone.IsList())
        return Refused("plays a list, which has a length of its own: a duration goes with tones");
    if (durationMs)
        tone.SetDuration(*durationMs);
    return OpenToneInput(tone, length);
}

SoundInput OpenWave(const std::string& path) {
    const LWaveFile wave = LWaveFile::Open(path.c_str());
    if (wave.source->status != SoundUsable)
        return Refused(LWaveFile::ExplainStatus(wave.source->status));
    const int end = wave.source->GetEndSample();
    if (end < 0)
        return Refused(TooManyFrames);
    SoundInput input;
    input.source = wave.source;
    input.frames = static_cast<double>(end);
    if (wave.header.IsCutShort())
        input.warnings.push_back({path, LWaveFile::CutShortText});
    return input;
}

SoundInput OpenByKind(const std::string& path, std::optional<unsigned int> durationMs, SoundLength length) {
    if (HasExtension(path, ".tdf"))
        return OpenTone(path, durationMs, length);
    if (!HasExtension(path, ".tdl") && !HasExtension(path, ".wav"))
        return Refused("is of an unknown type: .tdf, .tdl and .wav files are supported");
    if (durationMs)
        return Refused("has a length of its own: a duration goes with tones");
    return HasExtension(path, ".tdl") ? OpenList(path, length) : OpenWave(path);
}

} // namespace

std::vector<LFileWarning> CollectWarnings(const ToneListReport& report) {
    std::vector<LFileWarning> warnings;
    std::set<std::pair<std::string, std::string>> told;
    EntryNumber number;
    for (const ToneListEntry& entry : report.entries) {
        number.MoveTo(entry);
        if (!entry.problem.empty() && told.emplace(entry.file, entry.problem).second)
            warnings.push_back({entry.file, entry.problem + " (entry " + number.ToText() + ")"});
    }
    return warnings;
}

void WarnOfUnreadable(const SonvireData& tone, InputFacts& input) {
    if (const LFailure unreadable = CheckReadable(tone.GetListPath()))
        input.warnings.push_back({tone.GetListPath(), "can't be read: " + unreadable.GetReason()});
}

SoundInput OpenToneInput(const SonvireData& tone, SoundLength length) {
    if (length == SoundLength::Finite && !tone.IsFinite()) {
        SoundInput refused = Refused("has no end");
        refused.isList = tone.IsList();
        refused.endless = true;
        return refused;
    }
    if (LFailure failure = tone.CheckCountable())
        return Refused(std::move(failure));
    if (tone.IsList())
        return OpenListTone(tone, length);
    SoundInput input;
    input.source = OpenToneEngine(tone);
    input.endless = !tone.IsFinite() || tone.GetDurationFrames() == 0;
    input.frames = input.source->GetEndSample();
    return input;
}

SoundInput OpenSoundInput(const std::string& path, std::optional<unsigned int> durationMs,
                          SoundLength length) {
    if (LFailure failure = CheckReadable(path))
        return Refused(std::move(failure));
    SoundInput input = OpenByKind(path, durationMs, length);
    input.files.insert(path);
    return input;
}
