#include "app/file_kinds.h"

#include "hires/file_kind.h"

namespace {

/// Raw ones don't tell what they are, which is nothing for a window.
bool IsOffered(const HiresFileKind& kind) {
    return kind.container != HiresFileKind::Container::Raw;
}

std::vector<const char*> CollectKinds() {
    std::vector<const char*> kinds = {".tdf", ".tdl"};
    for (const HiresFileKind& kind : HiresFileKind::GetAll())
        for (const char* extension : kind.extensions)
            if (extension && IsOffered(kind))
                kinds.push_back(extension);
    return kinds;
}

std::string MakePattern(const HiresFileKind& kind) {
    std::string pattern;
    for (const char* extension : kind.extensions)
        if (extension)
            pattern += std::string("*") + extension + ";";
    return pattern;
}

} // namespace

std::span<const char* const> GetFileKinds() {
    static const std::vector<const char*> kinds = CollectKinds();
    return kinds;
}

std::vector<LFileFilter> AddHighQuality(std::vector<LFileFilter> filters) {
    for (const HiresFileKind& kind : HiresFileKind::GetAll())
        if (IsOffered(kind) && kind.container != HiresFileKind::Container::Wave)
            filters.push_back({kind.name + std::string(", 24 bits"), MakePattern(kind)});
    return filters;
}

LFileFilter GetSoundFilter() {
    LFileFilter filter{"Sound files", ""};
    for (const HiresFileKind& kind : HiresFileKind::GetAll())
        if (IsOffered(kind))
            filter.pattern += MakePattern(kind);
    filter.pattern += "*.au;*.mp3;*.ogg;*.opus"; // which are read as well
    return filter;
}
