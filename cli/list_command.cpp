#include "cli/commands.h"

#include "cli/output_option.h"
#include "cli/refusal.h"
#include "jobs/hires_files.h"
#include "jobs/hires_lists.h"
#include "jobs/sound_input.h"
#include "jobs/tone_lists.h"
#include "sys/file.h"
#include "sys/path.h"
#include "tone/tone_list_file.h"
#include "tone/tone_list_report.h"
#include "tone/typed_value.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <memory>

namespace {

struct ListOptions {
    OutputOption output;
    std::vector<std::string> entries;
};

/// A file's path as the list has it: from the list's folder on, unless it was given in full.
std::string PlaceBeside(const std::string& list, const std::string& file) {
    if (file.front() == '/')
        return file;
    std::error_code ignored;
    const auto folder = std::filesystem::absolute(GetFolder(list), ignored).lexically_normal();
    return std::filesystem::absolute(file, ignored).lexically_normal().lexically_proximate(folder).string();
}

bool IsForLists(const std::string& file) {
    const std::string extension = GetExtension(file);
    return extension == ".tdf" || extension == ".wav" || extension == ".tdl";
}

LFailure CheckEntry(const std::string& list, const std::string& file) {
    if (LFailure unreadable = CheckReadable(file))
        return unreadable;
    if (!IsForLists(file) && ReadSoundFileFacts(file).failure)
        return "is of an unknown type: lists play .tdf, .wav and .tdl files, in high quality all sound "
               "files, and "
               "silences such as 500ms";
    return CheckListEntry(PlaceBeside(list, file));
}

/// The length of an entry that is a silence: one that is typed like a duration and is no file's name.
std::optional<int> ParseSilence(const std::string& entry) {
    const std::optional<double> ms = FileExists(entry) ? std::nullopt : ParseDuration(entry);
    const bool fits = ms && *ms >= 0 && *ms <= MaxToneDurationMs;
    return fits ? std::optional(static_cast<int>(std::lround(*ms))) : std::nullopt;
}

void WarnOfEntries(const std::string& list) {
    const std::vector<LFileWarning> inHigh = CollectWarnings(ExamineHiresList(list));
    for (const LFileWarning& warning : CollectWarnings(ExamineToneList(list))) {
        const bool isInBoth = std::any_of(inHigh.begin(), inHigh.end(),
                                          [&](const auto& each) { return each.file == warning.file; });
        Warn(warning.file, (isInBoth ? "" : "plays in high quality only; else it ") + warning.reason);
    }
}

int MakeList(const ListOptions& options) {
    const std::string& output = options.output.path;
    if (!HasExtension(output, ".tdl"))
        return Refuse(output, "is no name for a tone list, which ends in .tdl");
    if (const LFailure taken = options.output.CheckFree())
        return Refuse(output, taken.GetReason());
    std::vector<std::string> rows;
    for (const std::string& entry : options.entries) {
        if (const std::optional<int> silence = ParseSilence(entry)) {
            rows.push_back(std::to_string(*silence) + SilenceSuffix);
            continue;
        }
        if (const LFailure failure = CheckEntry(output, entry))
            return Refuse(entry, failure.GetReason());
        rows.push_back(PlaceBeside(output, entry));
    }
    if (const LFailure failure = WriteToneListFile(output.c_str(), rows))
        return Refuse(output, "can't be written: " + failure.GetReason());
    WarnOfEntries(output);
    return ExitCompleted;
}

} // namespace

void AddListCommand(CLI::App& program, int& status) {
    const auto options = std::make_shared<ListOptions>();
    CLI::App* command = program.add_subcommand("list", "Write a tone list of files and silences");
    AddOutputOption(*command, options->output, "The tone list (.tdl) to write")->required();
    command
        ->add_option(
            "ENTRY", options->entries,
            "What plays, in this order: tones (.tdf), WAVE files (.wav; in high quality any sound files), "
            "lists (.tdl), and silences by their length, such as 500ms")
        ->required()
        ->type_name("");
    command->callback([options, &status] { status = MakeList(*options); });
}
