#include "jobs/render_outcome.h"

#include <algorithm>

RenderOutcome FinishRendering(OutputFile& output, LProcessResult result, const LFailure& unwritten,
                              LSourceNews& news) {
    std::vector<LFileWarning> told = news.Take();
    const auto lost =
        std::find_if(told.begin(), told.end(), [](const LFileWarning& each) { return each.isLoss; });
    if (lost != told.end())
        return {.failure = "was lost while it was read: " + lost->file + " " + lost->reason};
    const LFailure failure = output.Finish(result, unwritten);
    return {.result = failure ? LProcessResult::Failed : result,
            .failure = failure,
            .ofTheOutput = true,
            .warnings = std::move(told)};
}
