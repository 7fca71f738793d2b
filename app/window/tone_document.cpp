#include "app/window/tone_document.h"

#include "jobs/tone_lists.h"
#include "sys/path.h"

LWindowDocument DescribeList(const std::string& list) {
    const bool unsaved = list.empty() || IsTemporaryList(list);
    return {
        .name = unsaved ? UnsavedList : GetFileName(list), .path = unsaved ? "" : list, .changed = unsaved};
}

LWindowDocument ToneDocument::Describe(const SonvireData& tone) const {
    if (tone.IsList())
        return DescribeList(tone.GetListPath());
    return {.name = path.empty() ? "Untitled" : GetFileName(path), .path = path, .changed = content != tone};
}
