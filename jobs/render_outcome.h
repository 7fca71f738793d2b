#pragma once

#include "jobs/output_file.h"
#include "jobs/rendered_level.h"
#include "sound/source_news.h"

/// How a rendering has ended.
struct RenderOutcome {
    LProcessResult result = LProcessResult::Failed;
    LFailure failure{};       ///< nothing where the user did not want to go on
    bool ofTheOutput = false; ///< whether it is the output that has failed or can't be taken, or the input
    std::vector<LFileWarning> warnings{}; ///< of what was read, for once the file is in place
    RenderedLevel level{};
};

/// Ends a job that was run: puts its output in place, but not where a part of the input was lost, as `news`
/// then tells, or where the sound was `unwritten` in part.
RenderOutcome FinishRendering(OutputFile& output, LProcessResult result, const LFailure& unwritten,
                              LSourceNews& news);
