#include "app/window/list_rows.h"

#include "app/list_report.h"
#include "app/window/tone_document.h"
#include "jobs/tone_lists.h"
#include "sys/path.h"
#include "tone/listed_file.h"
#include "tone/tone_list_file.h"

#include <map>

namespace {

constexpr int ProblemColumn = 1, OrderColumn = 2;
constexpr LListColumn Columns[] = {
    {.title = "Tone Data"}, {.title = "Values"}, {.title = "Order", .values = true}};

/// The entries that don't play as they should, by their files.
std::map<std::string, ToneListEntry> FindProblems(const std::string& list) {
    std::map<std::string, ToneListEntry> problems;
    for (const ToneListEntry& entry : ExamineList(list).entries)
        if (entry.depth == 0 && !entry.problem.empty())
            problems.emplace(entry.file, entry);
    return problems;
}

std::string NameOf(const std::string& list) {
    return IsTemporaryList(list) ? UnsavedList : list;
}

/// In the last row, of an entry that may have a problem.
void ShowEntry(LListView& view, const std::string& name, int count, const ToneListEntry& entry) {
    const int row = view.GetCount() - 1;
    const std::string order = std::to_string(count - row);
    const std::string& problem = entry.problem;
    view.SetText(row, ProblemColumn, problem);
    view.SetText(row, OrderColumn, order);
    view.SetLook(row, {.mark = GetEntryMark(entry),
                       .toolTip = name + "\nPlays as number " + order + " of " + std::to_string(count) +
                                  (problem.empty() ? "" : "\n") + problem});
}

/// A problem of the entry whose row it is goes on naming it.
void ShowListName(LListView& view, const std::string& name) {
    const int last = view.GetCount() - 1;
    if (const std::string problem = view.GetText(last, ProblemColumn); !problem.empty())
        view.SetText(last, ProblemColumn, "\"" + view.GetText(last, 0) + "\" " + problem);
    view.SetText(last, 0, name);
}

} // namespace

LRowMark GetEntryMark(const ToneListEntry& entry) {
    return entry.endless ? LRowMark::Endless : entry.problem.empty() ? LRowMark::None : LRowMark::Problem;
}

std::span<const LListColumn> GetListColumns() {
    return Columns;
}

std::vector<LNotice> ShowListRows(LListView& view, const std::string& list, std::uint32_t item) {
    std::vector<std::string> lines;
    if (const LFailure failure = ReadToneListLines(lines, list.c_str())) {
        view.AppendRow(NameOf(list), item);
        view.SetText(0, ProblemColumn, "can't be read: " + failure.GetReason());
        view.SetLook(0, {.mark = LRowMark::Problem});
        return {};
    }
    std::vector<LNotice> missing;
    const std::map<std::string, ToneListEntry> problems = FindProblems(list);
    for (const std::string& line : lines) {
        const std::string file = IsSilence(line) ? "" : FindListEntry(line, GetFolder(list));
        if (!file.empty() && !FileExists(file))
            missing.push_back({"Error", "File \"" + line + "\" does not exist."});
        const auto found = problems.find(file);
        view.AppendRow(line, item);
        ShowEntry(view, file.empty() ? line : file, static_cast<int>(lines.size()),
                  found == problems.end() ? ToneListEntry{} : found->second);
    }
    if (lines.empty())
        view.AppendRow(list, item);
    else
        ShowListName(view, NameOf(list));
    return missing;
}
