#include "jobs/render_outcome.h"

#include <utility>

RenderOutcome FinishRendering(OutputFile& output, LProcessResult result, const LFailure& unwritten,
                              LSourceNews& news) {
    std::vector<LFileWarning> told = news.Take();
    if (LFailure lost = FindLoss(told))
        return {.failure = std::move(lost)};
    const LFailure failure = output.Finish(result, unwritten);
    return {.result = failure ? LProcessResult::Failed : result,
            .failure = failure,
            .ofTheOutput = true,
            .warnings = std::move(told)};
}
