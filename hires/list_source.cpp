#include "hires/list_source.h"

#include "hires/channel_source.h"
#include "hires/list_programme.h"

#include <algorithm>

namespace {

class HiresListSource : public HiresSource {
public:
    HiresListSource(HiresProgramme&& found, const HiresSettings& toneSettings, const HiresFileOpener& opener,
                    std::shared_ptr<LSourceNews> listNews)
        : HiresSource(toneSettings.rate, found.channels),
          programme(std::move(found)),
          settings(toneSettings),
          openFile(opener),
          news(std::move(listNews)),
          length(programme.GetLength()) {}

    void Read(std::int32_t* out, int frames) override;
    std::int64_t GetLength() const override { return length; }

private:
    bool OpenNext();
    void Open(HiresListedSound& sound);
    HiresSourcePtr OpenTone(const std::string& file);

    HiresProgramme programme;
    const HiresSettings settings;
    const HiresFileOpener openFile;
    const std::shared_ptr<LSourceNews> news;
    const std::int64_t length;
    std::size_t next = 0;
    std::uint64_t tones = 0; ///< opened so far
    HiresSourcePtr current;  ///< null while silence plays
    std::int64_t left = 0;   ///< of the current entry
};

/// Noise has a seed of its own each time.
HiresSourcePtr HiresListSource::OpenTone(const std::string& file) {
    SonvireData tone;
    if (tone.ReadFromFile(file.c_str()))
        return nullptr;
    HiresSettings own = settings;
    own.seed ^= tones++ << 32;
    return OpenHiresTone(tone, own).source;
}

void HiresListSource::Open(HiresListedSound& sound) {
    current = sound.waiting    ? std::move(sound.waiting)
              : sound.IsTone() ? OpenTone(sound.file)
                               : openFile(sound.file, rate).source;
    if (!current)
        news->Tell({sound.file, "can't be read any more"});
    else if (current->GetLength() != sound.length || current->channels > channels)
        news->Tell({sound.file, "has been replaced by another file"});
    if (current && current->channels > channels)
        current = nullptr;
    current = HiresChannels::Open(std::move(current), channels);
}

/// False behind the last entry.
bool HiresListSource::OpenNext() {
    if (next == programme.entries.size() && programme.loopStart)
        next = *programme.loopStart;
    current = nullptr;
    if (next == programme.entries.size())
        return false;
    const auto& [sound, frames] = programme.entries[next++];
    left = frames;
    if (sound != HiresProgramme::Silence && frames > 0)
        Open(programme.sounds[sound]);
    return true;
}

void HiresListSource::Read(std::int32_t* out, int frames) {
    while (frames > 0) {
        while (left == 0)
            if (!OpenNext())
                left = Endless;
        const int count = static_cast<int>(std::min<std::int64_t>(frames, left));
        if (current)
            current->Read(out, count);
        else
            std::fill_n(out, std::ptrdiff_t{count} * channels, 0);
        left -= left == Endless ? 0 : count;
        out += std::ptrdiff_t{count} * channels;
        frames -= count;
    }
}

} // namespace

HiresTone OpenHiresList(const ToneListReport& list, const HiresSettings& settings,
                        const HiresFileOpener& openFile) {
    HiresProgramme programme = FindHiresProgramme(list, settings, openFile);
    const double peak = programme.peak, excess = std::max(peak, 0.0);
    if (excess > 0 && !settings.fit)
        return {.source = nullptr,
                .failure = "plays " + programme.loudest + ", which " +
                           ExplainHiresExcess(settings.level, peak).GetReason()};
    HiresSettings fitting = settings;
    fitting.level -= excess;
    fitting.fit = true; // of a file that has become louder
    return {.source = std::make_unique<HiresListSource>(std::move(programme), fitting, openFile, list.news),
            .peak = std::min(peak, 0.0),
            .loweredDb = excess};
}
