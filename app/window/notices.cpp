#include "app/window/notices.h"

#include "sys/desktop/message_box.h"

#include <algorithm>

namespace {

/// False where no more are to follow.
bool Show(const LNotice& notice) {
    const LMessageButtons buttons = notice.mayBeLast ? LMessageButtons::OkCancel : LMessageButtons::Ok;
    return LShowMessageBox(notice.title, notice.text, buttons) == LMessageAnswer::Ok;
}

} // namespace

void ShowNotice(const LNotice& notice) {
    static_cast<void>(Show(notice));
}

void ShowNotices(const std::vector<LNotice>& notices) {
    static_cast<void>(std::all_of(notices.begin(), notices.end(), Show));
}
