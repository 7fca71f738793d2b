#include "hires/list_source.h"

#include "sys/path.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace {

struct Entry {
    std::string file;         ///< empty for a silence
    std::int64_t length = 0;  ///< in frames
    HiresSourcePtr waiting{}; ///< of a sound file
};

bool IsTone(const std::string& file) {
    return HasExtension(file, ".tdf");
}

class HiresListSource : public HiresSource {
public:
    HiresListSource(std::vector<Entry> all, int channelCount, const HiresSettings& toneSettings)
        : HiresSource(toneSettings.rate, channelCount),
          entries(std::move(all)),
          settings(toneSettings) {
        for (const Entry& each : entries)
            length = each.length == Endless || length == Endless ? Endless : length + each.length;
    }

    void Read(std::int32_t* out, int frames) override;
    std::int64_t GetLength() const override { return length; }

private:
    void OpenNext();
    void ReadCurrent(std::int32_t* out, int frames);

    std::vector<Entry> entries;
    const HiresSettings settings;
    std::int64_t length = 0;
    std::size_t next = 0;
    HiresSourcePtr current; ///< null while a silence plays
    std::int64_t left = 0;  ///< of the current entry
};

/// Null for a silence, and for a tone that can't be read any more.
HiresSourcePtr OpenEntry(Entry& entry, const HiresSettings& settings) {
    SonvireData tone;
    if (entry.waiting || entry.file.empty() || tone.ReadFromFile(entry.file.c_str()))
        return std::move(entry.waiting);
    return OpenHiresTone(tone, settings).source;
}

void HiresListSource::OpenNext() {
    Entry& entry = entries[next++];
    left = entry.length;
    current = OpenEntry(entry, settings);
    if (current && current->channels > channels)
        current = nullptr;
}

/// One channel is given to both sides.
void HiresListSource::ReadCurrent(std::int32_t* out, int frames) {
    if (!current) {
        std::fill_n(out, std::ptrdiff_t{frames} * channels, 0);
        return;
    }
    current->Read(out, frames);
    if (current->channels == channels)
        return;
    for (int i = frames - 1; i >= 0; --i)
        out[2 * i] = out[2 * i + 1] = out[i];
}

void HiresListSource::Read(std::int32_t* out, int frames) {
    while (frames > 0) {
        if (left == 0 && next < entries.size()) {
            OpenNext();
            continue;
        }
        const int count = static_cast<int>(left == 0 ? frames : std::min<std::int64_t>(frames, left));
        if (left == 0)
            current = nullptr;
        ReadCurrent(out, count);
        left -= left == 0 || left == Endless ? 0 : count;
        out += std::ptrdiff_t{count} * channels;
        frames -= count;
    }
}

} // namespace

namespace {

/// Finds what of a list can be played, and how long and loud it is.
class ListOpening {
public:
    ListOpening(const HiresSettings& asked, const HiresFileOpener& opener)
        : settings(asked),
          openFile(opener) {}

    void Add(const ToneListEntry& entry) {
        if (entry.file.empty())
            entries.push_back({.file = {}, .length = ToFrames(entry.length)});
        else if (IsTone(entry.file))
            AddTone(entry);
        else if (!HasExtension(entry.file, ".tdl")) // whose entries follow
            AddOpened(entry.file, openFile(entry.file, settings.rate));
    }
    HiresTone Open() {
        if (peak > 0 && !settings.fit)
            return {.source = nullptr, .failure = ExplainHiresExcess(settings.level, peak)};
        settings.level -= std::max(peak, 0.0);
        return {.source = std::make_unique<HiresListSource>(std::move(entries), channels, settings),
                .peak = std::min(peak, 0.0),
                .loweredDb = std::max(peak, 0.0)};
    }

private:
    std::int64_t ToFrames(LSoundTime time) const {
        return std::max<std::int64_t>(0, std::int64_t{time.GetMilliseconds()} * settings.rate / 1000);
    }
    void AddTone(const ToneListEntry& entry) {
        SonvireData tone;
        if (tone.ReadFromFile(entry.file.c_str()) || tone.IsList())
            return;
        const HiresToneFacts facts = MeasureHiresTone(tone, settings);
        peak = std::max(peak, facts.peak);
        channels = std::max(channels, facts.channels);
        entries.push_back({.file = entry.file, .length = facts.length});
    }
    void AddOpened(const std::string& file, HiresTone opened) {
        if (!opened.source)
            return;
        channels = std::max(channels, opened.source->channels);
        entries.push_back({.file = file, .length = opened.source->GetLength()});
        if (!IsTone(file))
            entries.back().waiting = std::move(opened.source);
    }

    HiresSettings settings;
    const HiresFileOpener& openFile;
    std::vector<Entry> entries;
    int channels = 1;
    double peak = -std::numeric_limits<double>::infinity(); ///< of all tones, in dBFS
};

} // namespace

HiresTone OpenHiresList(const ToneListReport& list, const HiresSettings& settings,
                        const HiresFileOpener& openFile) {
    ListOpening opening(settings, openFile);
    for (const ToneListEntry& each : list.entries)
        opening.Add(each);
    return opening.Open();
}
