#include "jobs/tone_lists.h"

#include "jobs/file_notices.h"
#include "sys/file.h"

#include "sys/path.h"
#include "tone/tone_list_nesting.h"
#include "tone/tone_list_report.h"
#include "tone/tone_list_source.h"

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr const char* TemporaryPrefix = "/var/tmp/0";

class Expansion {
public:
    explicit Expansion(ExpandedEntry& found) : expanded(found) {}

    void Add(const std::string& path) {
        if (IsListFile(path))
            AddList(path);
        else
            expanded.entries.push_back(path);
    }

    /// Unlike a list's lines, its entries come in playing order.
    void AddList(const std::string& path) {
        if (const LFailure left = nesting.Enter(path)) {
            Tell(path, left.GetReason());
            return;
        }
        std::vector<std::string> lines;
        if (const LFailure failure = ReadToneListLines(lines, path.c_str()))
            expanded.notices.push_back(DescribeUnreadable(path, failure));
        const std::string folder = GetFolder(path);
        std::reverse(lines.begin(), lines.end());
        for (const std::string& line : lines) {
            if (!MayAddEntry())
                break;
            if (ParseToneListLine(line).IsSilence())
                expanded.entries.push_back(line);
            else
                AddLine(line, FindListEntry(line, folder));
        }
        nesting.Leave();
    }

private:
    void AddLine(const std::string& line, const std::string& path) {
        if (nesting.GetDepth() == 0 && line != path)
            expanded.written.emplace(path, line);
        Add(path);
    }

    bool MayAddEntry() {
        const bool fits = nesting.CountEntry();
        if (!fits)
            Tell(nesting.GetOutermost(), ToneListNesting::TooManyEntries);
        return fits;
    }

    void Tell(const std::string& path, const std::string& why) {
        if (std::optional<LNotice> notice = nesting.Tell(path, why))
            expanded.notices.push_back(std::move(*notice));
    }

    ExpandedEntry& expanded;
    ToneListNesting nesting;
};

} // namespace

bool IsSilence(const std::string& entry) {
    return entry.find(SilenceSuffix) != std::string::npos;
}

bool IsTemporaryList(const std::string& path) {
    return path.starts_with(TemporaryPrefix) && GetExtension(path).empty();
}

bool IsListFile(const std::string& path) {
    return HasExtension(path, ".tdl") || HasExtension(path, ".tmp") || IsTemporaryList(path);
}

LFailure CreateTemporaryList(std::string& path) {
    std::string created = std::string(TemporaryPrefix) + "XXXXXX";
    const int descriptor = mkstemp(created.data());
    path.clear();
    if (descriptor < 0)
        return LFailure::OfLastCall();
    // Where this is refused, the list is still its user's.
    [[maybe_unused]] const int ignored = fchmod(descriptor, 0666);
    close(descriptor);
    path = created;
    return {};
}

ExpandedEntry ExpandListEntry(const std::string& path) {
    ExpandedEntry expanded;
    Expansion(expanded).Add(path);
    return expanded;
}

ExpandedEntry ExpandList(const std::string& path) {
    ExpandedEntry expanded;
    Expansion(expanded).AddList(path);
    return expanded;
}

LFailure CopyListFile(const std::string& from, const std::string& to) {
    std::vector<std::string> lines;
    if (LFailure failure = ReadToneListLines(lines, from.c_str()))
        return failure;
    std::reverse(lines.begin(), lines.end());
    bool changed = false;
    for (std::string& line : lines) {
        const std::string full =
            ParseToneListLine(line).IsSilence() ? line : FindListEntry(line, GetFolder(from));
        changed = changed || full != line;
        line = full;
    }
    return changed && GetFolder(from) != GetFolder(to) ? WriteToneListFile(to.c_str(), lines)
                                                       : LFile::CopyFile(from.c_str(), to.c_str());
}

bool IsReadByList(const std::string& file, const ToneListReport& report) {
    return IsOneOfFiles(file, report.files);
}

LFailure CheckListEntry(const std::string& path) {
    if (path.size() > ToneItem::MaxPathLength)
        return "its path is longer than " + std::to_string(ToneItem::MaxPathLength) + " bytes";
    if (path.find_first_of("\r\n") != std::string::npos)
        return "there is a line break in its name";
    return {};
}
