#include "jobs/hires_input.h"

#include "hires/channel_source.h"
#include "hires/list_source.h"
#include "hires/loop_source.h"
#include "jobs/hires_files.h"
#include "jobs/hires_lists.h"
#include "sound/files/wave_file.h"
#include "sys/file.h"
#include "sys/path.h"
#include "tone/tone_items.h"

#include <set>
#include <string_view>

namespace {

HiresInput Refused(LFailure failure) {
    HiresInput refused;
    refused.failure = std::move(failure);
    return refused;
}

/// Opens what the input is made of for the first time.
HiresInput Open(HiresInput input, const HiresRequest& request, HiresInput::Opener opener) {
    input.open = [opener = std::move(opener), channels = request.channels](int rate) {
        HiresTone opened = opener(rate);
        if (channels)
            opened.source = HiresChannels::Open(std::move(opened.source), *channels);
        return opened;
    };
    HiresTone opened = input.open(request.rate.value_or(request.settings.rate));
    input.source = std::move(opened.source);
    input.peak = opened.peak;
    input.loweredDb = opened.loweredDb;
    if (!input.source)
        return Refused(std::move(opened.failure));
    return input;
}

HiresSettings AtRate(HiresSettings settings, int rate) {
    settings.rate = rate;
    return settings;
}

/// The files of a list, its sound files as far as they can be had.
class ListFiles {
public:
    explicit ListFiles(ToneListReport&& found) : report(std::move(found)) {
        for (const ToneListEntry& each : report.entries)
            if (!each.problem.empty())
                problematic.insert(each.file);
    }
    ListFiles(const ListFiles&) = delete;
    ListFiles& operator=(const ListFiles&) = delete;

    const ToneListReport& GetReport() const { return report; }
    /// One that was there at first may be lost once its turn has come.
    HiresTone Open(const std::string& path, int rate) const {
        HiresTone opened = OpenSoundFile(path, rate, report.news);
        if (!opened.source && !problematic.contains(path))
            report.news->Tell({path, "can't be read any more"});
        return opened;
    }

private:
    ToneListReport report;
    std::set<std::string_view> problematic; ///< of the report's files
};

/// Plays it over and over where it `loops`.
HiresTone OpenListAtRate(const std::shared_ptr<const ListFiles>& files, const HiresSettings& settings,
                         bool loops) {
    const auto open = [files, settings] {
        return OpenHiresList(files->GetReport(), settings,
                             [files](const std::string& path, int rate) { return files->Open(path, rate); });
    };
    HiresTone opened = open();
    const std::int64_t turn = opened.source ? opened.source->GetLength() : 0;
    if (loops && turn > 0 && turn != HiresSource::Endless)
        opened.source =
            std::make_unique<HiresLoop>(std::move(opened.source), [open] { return open().source; });
    return opened;
}

HiresInput OpenList(const std::string& path, bool loops, const HiresRequest& request) {
    const auto files = std::make_shared<const ListFiles>(ExamineHiresList(path));
    const ToneListReport& report = files->GetReport();
    HiresInput input;
    input.isList = true;
    input.endless = loops;
    input.isNeverLeft = report.isNeverLeft;
    input.warnings = CollectWarnings(report);
    input.notices = report.notices;
    input.files = report.files;
    input.news = report.news;
    input.description = "list " + GetFileName(path);
    return Open(std::move(input), request, [files, loops, settings = request.settings](int rate) {
        return OpenListAtRate(files, AtRate(settings, rate), loops);
    });
}

HiresInput OpenTone(const std::string& path, const HiresRequest& request) {
    SonvireData tone;
    if (LFailure failure = tone.ReadFromFile(path.c_str()))
        return Refused(std::move(failure));
    if (request.durationMs && tone.IsList())
        return Refused("plays a list, which has a length of its own: a duration goes with tones");
    if (request.durationMs)
        tone.SetDuration(*request.durationMs);
    return OpenHiresToneInput(tone, request);
}

HiresInput OpenFile(const std::string& path, HiresRequest request) {
    const HiresFileFacts facts = ReadSoundFileFacts(path);
    if (facts.failure)
        return Refused(facts.failure);
    HiresInput input;
    input.isFile = true;
    input.description = GetFileName(path);
    if (facts.isCutShort)
        input.warnings.push_back({.file = path, .reason = LWaveFile::CutShortText});
    request.rate = request.rate.value_or(facts.rate);
    const auto open = [path, news = input.news](int rate) { return OpenSoundFile(path, rate, news); };
    return Open(std::move(input), request, open);
}

HiresInput OpenListTone(const SonvireData& tone, const HiresRequest& request) {
    HiresInput input = OpenList(tone.GetListPath(), tone.repeat != 0, request);
    WarnOfUnreadable(tone, input);
    return input;
}

/// "Sine 1 Frequency 997.00Hz; Sine Duration 1000ms"
std::string Describe(const SonvireData& tone) {
    std::string text;
    for (const unsigned int item : GetShownItems(tone))
        text += (text.empty() ? "" : "; ") + tone.GetItemName(item) + " " + tone.GetItemValue(item);
    return text;
}

} // namespace

HiresInput OpenHiresToneInput(const SonvireData& tone, const HiresRequest& request) {
    if (request.length == SoundLength::Finite && !tone.IsFinite()) {
        HiresInput refused = Refused("has no end");
        refused.isList = tone.IsList();
        refused.endless = true;
        return refused;
    }
    if (tone.IsList())
        return OpenListTone(tone, request);
    HiresInput input;
    input.endless = !tone.IsFinite() || tone.durationMs == 0;
    input.description = Describe(tone);
    return Open(std::move(input), request, [tone, settings = request.settings](int rate) {
        return OpenHiresTone(tone, AtRate(settings, rate));
    });
}

HiresInput OpenHiresInput(const std::string& path, const HiresRequest& request) {
    if (LFailure failure = CheckReadable(path))
        return Refused(std::move(failure));
    const bool isTone = HasExtension(path, ".tdf");
    if (request.durationMs && !isTone)
        return Refused("has a length of its own: a duration goes with tones");
    HiresInput input = isTone                       ? OpenTone(path, request)
                       : HasExtension(path, ".tdl") ? OpenList(path, false, request)
                                                    : OpenFile(path, request);
    input.files.insert(path);
    return input;
}
