#include "hires/list_programme.h"

#include "sys/path.h"

#include <algorithm>
#include <unordered_map>

namespace {

constexpr const char* ToneExtension = ".tdf";

class Search {
public:
    Search(const HiresSettings& asked, const HiresFileOpener& opener) : settings(asked), openFile(opener) {}

    /// False where nothing behind this is reached.
    bool Add(const ToneListEntry& entry);
    HiresProgramme Finish() &&;

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
    Found Keep(HiresListedSound&& sound, int channels);

    const HiresSettings& settings;
    const HiresFileOpener& openFile;
    HiresProgramme programme;
    std::unordered_map<std::string, Found> known;
    std::optional<int> loopDepth;
};

bool Search::Add(const ToneListEntry& entry) {
    if (loopDepth && entry.depth <= *loopDepth)
        DropEmptyLoop();
    if (loopDepth && entry.depth <= *loopDepth)
        return false;
    if (entry.file.empty()) {
        programme.entries.push_back({HiresProgramme::Silence, ToFrames(entry.length)});
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
void Search::DropEmptyLoop() {
    const auto lasts = [](const HiresProgramme::Entry& entry) { return entry.length > 0; };
    const auto start =
        programme.entries.begin() + static_cast<std::ptrdiff_t>(programme.loopStart.value_or(0));
    if (std::any_of(start, programme.entries.end(), lasts))
        return;
    programme.loopStart.reset();
    loopDepth.reset();
}

Search::Found Search::Look(const std::string& file) {
    if (HasExtension(file, ToneExtension))
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

Search::Found Search::LookAtTone(const std::string& file) {
    SonvireData tone;
    if (tone.ReadFromFile(file.c_str()))
        return {};
    if (tone.IsList())
        return {.isLoop = tone.repeat != 0};
    const HiresToneFacts facts = MeasureHiresTone(tone, settings);
    if (facts.peak > programme.peak) {
        programme.peak = facts.peak;
        programme.loudest = file;
    }
    return Keep({file, facts.length, nullptr}, facts.channels);
}

Search::Found Search::Keep(HiresListedSound&& sound, int channels) {
    programme.channels = std::max(programme.channels, channels);
    programme.sounds.push_back(std::move(sound));
    return {.sound = programme.sounds.size() - 1};
}

HiresProgramme Search::Finish() && {
    DropEmptyLoop();
    return std::move(programme);
}

} // namespace

bool HiresListedSound::IsTone() const {
    return HasExtension(file, ToneExtension);
}

std::int64_t HiresProgramme::GetLength() const {
    std::int64_t length = 0;
    for (const Entry& each : entries)
        if (each.length == HiresSource::Endless || loopStart)
            return HiresSource::Endless;
        else
            length += each.length;
    return length;
}

HiresProgramme FindHiresProgramme(const ToneListReport& list, const HiresSettings& settings,
                                  const HiresFileOpener& openFile) {
    Search search(settings, openFile);
    for (const ToneListEntry& each : list.entries)
        if (!search.Add(each))
            break;
    return std::move(search).Finish();
}
