#pragma once

#include "jobs/hires_input.h"

#include <optional>
#include <string>

namespace CLI {
class App;
}

/// The options of high quality. An option that the standard quality lacks takes high quality, and says so.
struct HiresOptions {
    static constexpr const char* Group = "High quality"; ///< of the options, in the help

    std::string quality; ///< "standard" or "high"; empty where it was not given
    std::optional<double> level{};
    bool fits = false;
    std::optional<double> fadeInMs{}, fadeOutMs{};

    std::string implied{}; ///< why it is high quality without being asked for, such as "--level"

    /// Notes that `what` needs high quality; the first one is told.
    void Imply(const std::string& what);
    /// The same for a sound file that the standard quality can't read or write, by its name.
    void ImplyFor(const std::string& file);
    bool IsHigh() const { return quality == "high" || !implied.empty(); }
    /// Why the options contradict each other; empty where they don't. Tells what was implied.
    std::string Settle() const;
    /// Opens an input; refuses what goes with tones where it is a sound file.
    HiresInput Open(const std::string& path, const HiresRequest& request) const;
    /// Whether they go with a sound file, where it is one.
    LFailure CheckFor(bool isSoundFile) const;
    /// `fadeMs` where no fades were asked for.
    HiresSettings MakeSettings(double fadeMs, std::optional<int> seed) const;
};

/// Adds `--quality`, `--level`, `--fit` and `--fade` to a command. `options` must outlive it.
void AddHiresOptions(CLI::App& command, HiresOptions& options);

/// Warns where nothing is heard of a tone, and answers whether that is so.
bool WarnOfSilence(const std::string& name, const HiresInput& input);

/// What to add where the standard quality can't use this file: empty where high quality can't read it either.
std::string HintAtHighQuality(const std::string& path);
