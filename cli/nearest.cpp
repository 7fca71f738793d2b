#include "cli/nearest.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace {

/// How many letters are to be put in, left out or changed to make one of the other (Levenshtein's distance).
std::size_t CountEdits(const std::string& from, const std::string& to) {
    std::vector<std::size_t> edits(to.size() +
                                   1); // from what has been seen of `from` to each beginning of `to`
    std::iota(edits.begin(), edits.end(), std::size_t{0});
    for (const char letter : from) {
        std::size_t diagonal = std::exchange(edits[0], edits[0] + 1);
        for (std::size_t i = 0; i < to.size(); ++i) {
            const std::size_t changed = diagonal + (letter == to[i] ? 0 : 1);
            diagonal = edits[i + 1];
            edits[i + 1] = std::min({changed, edits[i] + 1, diagonal + 1});
        }
    }
    return edits.back();
}

} // namespace

std::string FindNearest(const std::string& typed, const std::vector<std::string>& names) {
    std::string nearest;
    std::size_t fewest = std::max<std::size_t>(typed.size(), 3) / 2 + 1; // with more, it is another word
    for (const std::string& name : names) {
        const bool begun = typed.size() > 2 && name.starts_with(typed);
        const std::size_t edits = begun ? 1 : CountEdits(typed, name);
        if (edits < fewest) {
            fewest = edits;
            nearest = name;
        }
    }
    return nearest;
}
