#pragma once

#include "hires/file_kind.h"
#include "jobs/hires_input.h"
#include "jobs/hires_render_job.h"
#include "jobs/render_outcome.h"

#include <functional>

/// What is to become of an input in high quality.
struct HiresTarget {
    std::string path; ///< of the file, whose extension tells its kind; "-" for standard output
    HiresSamples samples = HiresSamples::Int24;
    bool dither = true;     ///< with 16 bits
    bool isRaw = false;     ///< samples without a header, whatever the name
    std::uint64_t seed = 1; ///< of the dither
    std::string program{};  ///< with its version, for the file's tag
};

/// What rendering asks of the program that it is a part of.
struct HiresRenderUser {
    /// Tells what the user should know first; false where it is not to go on.
    std::function<bool(const std::vector<LFileWarning>&)> confirm;
    /// Runs the job under a progress display.
    std::function<LProcessResult(HiresRenderJob&)> run;
};

/// The kind of file that a name asks for: by its extension, WAVE for what has no extension to go by; null
/// where the extension is none of a sound file.
const HiresFileKind* FindOutputKind(const std::string& path);

/// Renders an input, at the rate and with the channels that it is opened with, and puts the file in place
/// once it is whole, as `RenderToFile` does in the standard quality.
RenderOutcome RenderHiresToFile(HiresInput& input, const HiresTarget& target, const HiresRenderUser& user);
