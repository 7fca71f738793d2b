#include "jobs/render_outcome.h"

namespace {

/// Whether all was read that the input consists of.
LFailure CheckRead(LSourceNews& news) {
    const std::vector<LFileWarning> lost = news.Take();
    return lost.empty() ? LFailure()
                        : "was lost while it was read: " + lost.front().file + " " + lost.front().reason;
}

} // namespace

RenderOutcome FinishRendering(OutputFile& output, LProcessResult result, const LFailure& unwritten,
                              LSourceNews& news) {
    if (LFailure lost = CheckRead(news))
        return {.failure = std::move(lost)};
    const LFailure failure = output.Finish(result, unwritten);
    return {.result = failure ? LProcessResult::Failed : result, .failure = failure, .ofTheOutput = true};
}
