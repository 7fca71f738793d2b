#pragma once

#include "jobs/render_outcome.h"
#include "jobs/rendered_format.h"
#include "sound/render_job.h"

#include <functional>

/// What is to become of an input.
struct RenderTarget {
    std::string path; ///< of the WAVE file; "-" for standard output
    RenderedFormatRequest format{};
};

/// What rendering asks of the program that it is a part of.
struct RenderUser {
    /// Tells what the user should know first; false where it is not to go on.
    std::function<bool(const std::vector<LFileWarning>&)> confirm;
    /// Runs the job under a progress display.
    std::function<LProcessResult(LPRSourceToSink&)> run;
};

/// Renders an input into a WAVE file: refuses what can't be, has the user confirm what would not sound as he
/// may expect, brings it to the target's format (its own where the target leaves that open), limits it, and
/// puts the file in place once it is whole. A file that the input reads is never written over.
RenderOutcome RenderToFile(const SoundInput& input, const RenderTarget& target, const RenderUser& user);
