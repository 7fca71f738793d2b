#include "app/list_editor/edited_list.h"

#include "app/setting_names.h"
#include "jobs/tone_lists.h"
#include "sys/path.h"

#include <unistd.h>

EditedList::EditedList() : path(Setting::EditList.Get()) {}

void EditedList::Begin(const std::string& file) {
    untitled = true;
    MoveTo(file);
    created.clear();
    replaced = IsTemporaryList(file) ? file : "";
}

LFailure EditedList::CreateFile() {
    LFailure failure = CreateTemporaryList(created);
    MoveTo(created);
    return failure;
}

/// The setting alone would not do: the store may refuse it, and holds no long or oddly encoded path.
void EditedList::MoveTo(const std::string& file) {
    path = file;
    untitled = untitled && GetExtension(path) != ".tdl";
    Setting::EditList.Set(path);
}

void EditedList::Keep() {
    for (const std::string& temporary : {created, replaced})
        if (!temporary.empty() && temporary != path)
            unlink(temporary.c_str());
}

void EditedList::Drop() {
    if (created.empty())
        return;
    unlink(created.c_str());
    if (path == created)
        MoveTo({});
}
