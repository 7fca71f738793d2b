#include "app/edited_list.h"

#include "sys/settings.h"

std::string GetEditedList() {
    return LUserSettingGetText("tonelist", "editlist");
}

void SetEditedList(const std::string& path) {
    LUserSettingSetString("tonelist", "editlist", path);
}
