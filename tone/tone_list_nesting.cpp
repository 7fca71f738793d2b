#include "tone/tone_list_nesting.h"

#include "tone/tone_list_file.h"

#include <algorithm>
#include <utility>

const std::string ToneListNesting::TooManyEntries =
    "has more than " + std::to_string(MaxListEntries) +
    " entries, those of the lists in it included; the rest is left out";

LFailure ToneListNesting::Enter(const std::string& path) {
    const auto [known, isNew] = identities.try_emplace(path);
    if (isNew)
        known->second = GetFileIdentity(path.c_str());
    const LFileIdentity file = known->second;
    if (file.Exists() && std::find(open.begin(), open.end(), file) != open.end())
        return "includes itself; it is left out there";
    if (open.size() == MaxListDepth)
        return "lies too deep in other lists and is left out";
    if (open.empty())
        outermost = path;
    open.push_back(file);
    return {};
}

bool ToneListNesting::CountEntry() {
    return ++entries <= MaxListEntries;
}

std::optional<LNotice> ToneListNesting::Tell(const std::string& path, const std::string& why) {
    if (std::exchange(told, true))
        return {};
    return LNotice{"Tone list", "The list \"" + path + "\" " + why + "."};
}
