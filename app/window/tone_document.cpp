#include "app/window/tone_document.h"

#include "jobs/tone_lists.h"
#include "sys/path.h"

LWindowDocument ToneDocument::Describe(const SonvireData& tone) const {
    if (tone.IsList()) {
        const std::string list = tone.GetListPath();
        const bool unsaved = IsTemporaryList(list);
        return {.name = unsaved ? "Unsaved list" : GetFileName(list),
                .path = unsaved ? "" : list,
                .changed = unsaved};
    }
    return {.name = path.empty() ? "Untitled" : GetFileName(path), .path = path, .changed = content != tone};
}
