#include "jobs/file_notices.h"

namespace {

LNotice Describe(const std::string& path, const std::string& what) {
    return {"Error", "The file \"" + path + "\" " + what + "."};
}

} // namespace

LNotice DescribeUnreadable(const std::string& path, const LFailure& failure) {
    const bool ofTheContent = failure.GetError() == 0;
    return Describe(path, (ofTheContent ? "can't be read: it " : "can't be read: ") + failure.GetReason());
}

LNotice DescribeNotAdded(const std::string& path, const LFailure& failure) {
    return Describe(path, "can't be added: " + failure.GetReason());
}

LNotice DescribeUnwritten(const std::string& path, const LFailure& failure) {
    return Describe(path, "can't be written: " + failure.GetReason());
}

LNotice DescribeFailed(const std::string& path, const LFailure& failure) {
    return Describe(path, failure.GetReason());
}
