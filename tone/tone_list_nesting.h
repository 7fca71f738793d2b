#pragma once

#include "sys/file.h"
#include "sys/notice.h"

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

/// The most lists that lie within each other.
inline constexpr int MaxListDepth = 32;

/// Where somebody stands who goes through a tone list and the lists in it, and where he must stop, so that
/// any list comes to an end.
class ToneListNesting {
public:
    /// Goes into a list, until `Leave`. Where it must be left out, because it lies within itself or too deep,
    /// stays outside and returns why.
    LFailure Enter(const std::string& path);
    void Leave() { open.pop_back(); }
    /// Counts an entry, whichever list it stands in; false where it must be left out, and all that follow.
    bool CountEntry();

    /// 0 in the outermost list.
    int GetDepth() const { return static_cast<int>(open.size()) - 1; }
    const std::string& GetOutermost() const { return outermost; }

    /// What to tell of something that is left out of a list; nothing but the first time.
    std::optional<LNotice> Tell(const std::string& path, const std::string& why);

    /// Why `CountEntry` returns false.
    static const std::string TooManyEntries;

private:
    std::vector<LFileIdentity> open;
    std::unordered_map<std::string, LFileIdentity> identities; ///< of all lists so far
    std::string outermost;
    int entries = 0;
    bool told = false;
};
