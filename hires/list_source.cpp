#include "hires/list_source.h"

#include "sys/path.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <unordered_map>
#include <vector>

namespace {

/// A file that a list names, however often.
struct ListedSound {
    std::string file;
    std::int64_t length;    ///< in frames
    HiresSourcePtr waiting; ///< of a sound file, until its first turn
};

/// What plays, one after the other.
struct Programme {
    static constexpr std::size_t Silence = SIZE_MAX;
    struct Entry {
        std::size_t sound; ///< its place, or `Silence`
        std::int64_t length;
    };

    std::int64_t GetLength() const;

    std::vector<ListedSound> sounds;
    std::vector<Entry> entries;
    std::optional<std::size_t> loopStart{}; ///< the entry that follows on the last one
    int channels = 1;
};

std::int64_t Programme::GetLength() const {
    std::int64_t length = 0;
    for (const Entry& each : entries)
        if (each.length == HiresSource::Endless || loopStart)
            return HiresSource::Endless;
        else
            length += each.length;
    return length;
}

bool IsTone(const std::string& file) {
    return HasExtension(file, ".tdf");
}

class HiresListSource : public HiresSource {
public:
    HiresListSource(Programme&& found, const HiresSettings& toneSettings, const HiresFileOpener& opener,
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
    void Open(ListedSound& sound);
    HiresSourcePtr OpenTone(const std::string& file);
    void ReadCurrent(std::int32_t* out, int frames);

    Programme programme;
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

void HiresListSource::Open(ListedSound& sound) {
    current = sound.waiting        ? std::move(sound.waiting)
              : IsTone(sound.file) ? OpenTone(sound.file)
                                   : openFile(sound.file, rate).source;
    if (!current)
        news->Tell({sound.file, "can't be read any more"});
    else if (current->GetLength() != sound.length || current->channels > channels)
        news->Tell({sound.file, "has been replaced by another file"});
    if (current && current->channels > channels)
        current = nullptr;
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
    if (sound != Programme::Silence && frames > 0)
        Open(programme.sounds[sound]);
    return true;
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
        while (left == 0)
            if (!OpenNext())
                left = Endless;
        const int count = static_cast<int>(std::min<std::int64_t>(frames, left));
        ReadCurrent(out, count);
        left -= left == Endless ? 0 : count;
        out += std::ptrdiff_t{count} * channels;
        frames -= count;
    }
}

/// Finds what of a list can be played, and how long and loud it is. Each file is looked at once.
class ListOpening {
public:
    ListOpening(const HiresSettings& asked, const HiresFileOpener& opener,
                std::shared_ptr<LSourceNews> listNews)
        : settings(asked),
          openFile(opener),
          news(std::move(listNews)) {}

    /// False where nothing behind this is reached.
    bool Add(const ToneListEntry& entry);
    HiresTone Open() &&;

private:
    struct Found {
        std::optional<std::size_t> sound{}; ///< none of what can't be used, or is a list
        bool isLoop = false;                ///< a list that plays over and over
    };

    std::int64_t ToFrames(LSoundTime time) const {
        return std::max<std::int64_t>(0, std::int64_t{time.GetMilliseconds()} * settings.rate / 1000);
    }
    void DropEmptyLoop();
    Found Look(const std::string& file);
    Found LookAtTone(const std::string& file);
    Found Keep(ListedSound&& sound, int channels);

    HiresSettings settings;
    const HiresFileOpener& openFile;
    const std::shared_ptr<LSourceNews> news;
    Programme programme;
    std::unordered_map<std::string, Found> known;
    std::optional<int> loopDepth;
    double peak = -std::numeric_limits<double>::infinity(); ///< of all tones, in dBFS
};

bool ListOpening::Add(const ToneListEntry& entry) {
    if (loopDepth && entry.depth <= *loopDepth)
        DropEmptyLoop();
    if (loopDepth && entry.depth <= *loopDepth)
        return false;
    if (entry.file.empty()) {
        programme.entries.push_back({Programme::Silence, ToFrames(entry.length)});
        return true;
    }
    const auto [found, isNew] = known.try_emplace(entry.file);
    if (isNew)
        found->second = Look(entry.file);
    if (found->second.isLoop) {
        loopDepth = entry.depth;
        programme.loopStart = programme.entries.size();
    }
    if (!found->second.sound)
        return true;
    const std::int64_t length = programme.sounds[*found->second.sound].length;
    programme.entries.push_back({*found->second.sound, length});
    return length != HiresSource::Endless;
}

/// Where nothing of it lasts, what follows is reached.
void ListOpening::DropEmptyLoop() {
    const auto lasts = [](const Programme::Entry& entry) { return entry.length > 0; };
    const auto start =
        programme.entries.begin() + static_cast<std::ptrdiff_t>(programme.loopStart.value_or(0));
    if (std::any_of(start, programme.entries.end(), lasts))
        return;
    programme.loopStart.reset();
    loopDepth.reset();
}

ListOpening::Found ListOpening::Look(const std::string& file) {
    if (IsTone(file))
        return LookAtTone(file);
    if (HasExtension(file, ".tdl")) // its entries follow
        return {};
    HiresTone opened = openFile(file, settings.rate);
    if (!opened.source)
        return {};
    const std::int64_t length = opened.source->GetLength();
    const int channels = opened.source->channels;
    return Keep({file, length, std::move(opened.source)}, channels);
}

ListOpening::Found ListOpening::LookAtTone(const std::string& file) {
    SonvireData tone;
    if (tone.ReadFromFile(file.c_str()))
        return {};
    if (tone.IsList())
        return {.isLoop = tone.repeat != 0};
    const HiresToneFacts facts = MeasureHiresTone(tone, settings);
    peak = std::max(peak, facts.peak);
    return Keep({file, facts.length, nullptr}, facts.channels);
}

ListOpening::Found ListOpening::Keep(ListedSound&& sound, int channels) {
    programme.channels = std::max(programme.channels, channels);
    programme.sounds.push_back(std::move(sound));
    return {.sound = programme.sounds.size() - 1};
}

HiresTone ListOpening::Open() && {
    const double excess = std::max(peak, 0.0);
    if (excess > 0 && !settings.fit)
        return {.source = nullptr, .failure = ExplainHiresExcess(settings.level, peak)};
    settings.level -= excess;
    settings.fit = true; // of a file that has become louder
    DropEmptyLoop();
    return {.source = std::make_unique<HiresListSource>(std::move(programme), settings, openFile, news),
            .peak = std::min(peak, 0.0),
            .loweredDb = excess};
}

} // namespace

HiresTone OpenHiresList(const ToneListReport& list, const HiresSettings& settings,
                        const HiresFileOpener& openFile) {
    ListOpening opening(settings, openFile, list.news);
    for (const ToneListEntry& each : list.entries)
        if (!opening.Add(each))
            break;
    return std::move(opening).Open();
}
