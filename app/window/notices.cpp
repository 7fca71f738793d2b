#include "app/window/notices.h"

#include "sys/desktop/message_box.h"

namespace {

constexpr std::size_t MostBoxes = 10;

/// False where no more are to follow.
bool Show(const LNotice& notice, bool moreFollow) {
    const bool cancels = notice.mayBeLast || moreFollow;
    const LMessageButtons buttons = cancels ? LMessageButtons::OkCancel : LMessageButtons::Ok;
    return LShowMessageBox(notice.title, notice.text, buttons) == LMessageAnswer::Ok;
}

} // namespace

void ShowNotice(const LNotice& notice) {
    static_cast<void>(Show(notice, false));
}

void ShowNotices(const std::vector<LNotice>& notices) {
    const std::size_t shown = notices.size() > MostBoxes ? MostBoxes - 1 : notices.size();
    for (std::size_t i = 0; i < shown; ++i)
        if (!Show(notices[i], i + 1 < notices.size()))
            return;
    if (shown < notices.size())
        ShowNotice(
            {notices.back().title, std::to_string(notices.size() - shown) + " more of these are not shown."});
}
