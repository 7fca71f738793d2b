#include "sound_input.h"

#include "sound/wave_file.h"
#include "sys/file.h"
#include "tone/tone_engine.h"

#include <algorithm>
#include <cctype>

namespace {

constexpr const char* NoDurationText =
    "Tones can only be saved as wav files if they are a fixed duration tone.\n\n"
    "Select the Constant (Specified Duration) or Sweep items, or turn of loop play, from the Tones menu.";

SoundInput Refused(std::string reason) {
    return {.source = {}, .refusal = std::move(reason), .warning = {}};
}

SoundInput OpenTone(const std::string& path, std::optional<unsigned int> durationMs, SoundLength length) {
    SonvireData tone;
    if (!tone.ReadFromFile(path.c_str()))
        return Refused("is not a whole tone: a tone data file has " + std::to_string(SonvireData::FileBytes) +
                       " bytes");
    if (durationMs)
        tone.SetDuration(*durationMs);
    if (length == SoundLength::Finite && !tone.IsFinite())
        return Refused(NoDurationText);
    if (tone.HasFlag(ToneFlagDuration) && tone.durationMs > MaxToneDurationMs)
        return Refused("lasts longer than the 13 and a half hours that a tone can be counted for");
    return {.source = OpenToneEngine(tone), .refusal = {}, .warning = {}, .endless = !tone.IsFinite()};
}

std::string ExplainStatus(int status) {
    switch (status) {
    case SoundNothing:
        return "IMA ADPCM is supported in mono only";
    case SoundInvalidFormat:
        return "is damaged or no WAVE file";
    case SoundCannotOpen:
        return "can't be opened";
    case SoundUnsupportedFormat:
        return "is of an unsupported kind: PCM of 8 or 16 bits and mono IMA ADPCM are supported";
    default:
        return "can't be used";
    }
}

SoundInput OpenWave(const std::string& path, std::optional<unsigned int> durationMs) {
    if (durationMs)
        return Refused("is a WAVE file, which has a length of its own: --duration goes with tones");
    const LSoundSource source = LWaveFile::OpenSource(path.c_str());
    if (source->status != SoundUsable)
        return Refused(ExplainStatus(source->status));
    if (source->GetEndSample() < 0)
        return Refused("is too long: more than 2147483647 frames");
    const bool cutShort = LWaveFile::IsCutShort(path.c_str());
    return {.source = source,
            .refusal = {},
            .warning = cutShort ? "is cut short; silence stands for the rest" : ""};
}

std::string ToLower(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

} // namespace

SoundInput OpenSoundInput(const std::string& path, std::optional<unsigned int> durationMs,
                          SoundLength length) {
    const std::string extension = ToLower(GetPathExtension(path));
    if (const std::string reason = WhyUnreadable(path.c_str()); !reason.empty())
        return Refused(reason);
    if (extension == ".tdf")
        return OpenTone(path, durationMs, length);
    if (extension == ".wav")
        return OpenWave(path, durationMs);
    return Refused("is of an unknown type: .tdf and .wav files are supported");
}
