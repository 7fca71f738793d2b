#pragma once

#include "sys/failure.h"

#include <algorithm>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

/// Something about a file that the user should know, although it can be gone on with.
struct LFileWarning {
    std::string file;
    std::string reason;
    bool isLoss = true; ///< whether a part of the sound is not there, by which a rendering fails

    bool operator==(const LFileWarning&) const = default;
};

/// Why a job fails by what it is told; nothing where no part of the sound was lost.
inline LFailure FindLoss(const std::vector<LFileWarning>& told) {
    const auto lost =
        std::find_if(told.begin(), told.end(), [](const LFileWarning& each) { return each.isLoss; });
    return lost == told.end() ? LFailure() : "was lost while it was read: " + lost->file + " " + lost->reason;
}

/// What goes wrong with files while they are read, told by their sources, which give silence in place of what
/// is lost, and fetched by whoever has them played or rendered.
class LSourceNews {
public:
    /// The same thing once. Thread: reader. Blocks: no. Allocates: yes.
    void Tell(const LFileWarning& warning) {
        const std::scoped_lock lock(mutex);
        if (std::find(told.begin(), told.end(), warning) != told.end())
            return;
        told.push_back(warning);
        fresh.push_back(warning);
    }

    /// What is new since the last call. Thread: any. Blocks: no. Allocates: no.
    std::vector<LFileWarning> Take() {
        const std::scoped_lock lock(mutex);
        return std::exchange(fresh, {});
    }

private:
    std::mutex mutex;
    std::vector<LFileWarning> told, fresh;
};
