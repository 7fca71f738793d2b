#include "app/list_editor/edited_list.h"

#include "app/setting_names.h"
#include "jobs/tone_lists.h"
#include "sys/desktop/folders.h"
#include "sys/path.h"
#include "tone/tone_list_file.h"

#include <algorithm>
#include <cstdio>
#include <unistd.h>

namespace {

LFileState GetState(const std::string& file) {
    return LSharedReadFile(file.c_str()).GetState();
}

std::string DraftPath() {
    return GetUserDataFolder() + "/edited-list.tdl";
}

std::string LostDraftPath() {
    return GetUserDataFolder() + "/lost-list.tdl";
}

} // namespace

EditedList::EditedList() : path(Setting::EditList.Get()) {
    Own(path);
    std::rename(DraftPath().c_str(), LostDraftPath().c_str());
}

void EditedList::KeepDraft(const std::vector<std::string>& rows) {
    static_cast<void>(WriteToneListFile(DraftPath().c_str(), rows));
}

void EditedList::DropDraft() {
    unlink(DraftPath().c_str());
}

bool EditedList::HasLostDraft() {
    return FileExists(LostDraftPath());
}

LFailure EditedList::RecoverDraft(std::string& file) {
    LFailure failure = CreateTemporaryList(file);
    if (!failure)
        failure = LFile::CopyFile(LostDraftPath().c_str(), file.c_str());
    if (!failure)
        std::rename(LostDraftPath().c_str(), DraftPath().c_str());
    recovered = file;
    Own(file);
    return failure;
}

void EditedList::DropLostDraft() {
    unlink(LostDraftPath().c_str());
}

void EditedList::Begin(const std::string& file) {
    untitled = true;
    before = path;
    begun = file;
    MoveTo(file);
}

bool EditedList::HasChanged() const {
    const LFileState now = GetState(path);
    return now.identity.Exists() && now != state;
}

LFailure EditedList::CreateFile() {
    LFailure failure = CreateTemporaryList(begun);
    MoveTo(begun);
    return failure;
}

/// The setting alone would not do: the store may refuse it, and holds no long or oddly encoded path.
void EditedList::MoveTo(const std::string& file) {
    path = file;
    state = GetState(path);
    untitled = untitled && !HasExtension(path, ".tdl");
    Own(path);
    Setting::EditList.Set(path);
}

void EditedList::Drop() {
    if (path == begun)
        MoveTo(before);
}

void EditedList::RemoveUnused(const std::set<std::string>& named) {
    std::erase_if(temporaries, [&](const std::string& each) {
        const bool unused = each != path && !named.contains(each);
        if (unused)
            unlink(each.c_str());
        return unused;
    });
    std::for_each(named.begin(), named.end(), [this](const std::string& each) { Own(each); });
}

void EditedList::Own(const std::string& file) {
    if (IsTemporaryList(file))
        temporaries.insert(file);
}
