#include "app/list_editor/edited_list.h"

#include "sys/desktop/settings.h"

#include <optional>

namespace {

/// What this process has told: the store may refuse it, and holds no long or oddly encoded path.
std::optional<std::string>& Told() {
    static std::optional<std::string> told;
    return told;
}

} // namespace

std::string GetEditedList() {
    return Told() ? *Told() : LUserSettingGetText("tonelist", "editlist");
}

void SetEditedList(const std::string& path) {
    Told() = path;
    LUserSettingSetString("tonelist", "editlist", path);
}
