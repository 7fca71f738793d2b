#include "app/window/tone_lists.h"

#include "app/file_kinds.h"
#include "app/list_editor/list_dlg.h"
#include "app/setting_names.h"
#include "app/window/notices.h"
#include "app/window/tone_commands.h"
#include "app/window/tone_files.h"
#include "gui/file_chooser.h"
#include "gui/toolkit.h"
#include "hires/file_kind.h"
#include "jobs/file_notices.h"
#include "jobs/tone_lists.h"
#include "sys/file.h"
#include "sys/path.h"
#include "tone/tone_list_report.h"

#include <filesystem>

namespace {

/// Not that of a temporary file.
std::string ProposeName(const std::string& list) {
    return HasExtension(list, ".tdl") ? list : "";
}

/// True for a list that would be missed.
bool IsUnsaved(const std::string& list) {
    std::error_code missing;
    return IsTemporaryList(list) && std::filesystem::file_size(list, missing) > 0 && !missing;
}

} // namespace

bool ToneLists::CmEditList(const std::string& path) {
    if (const LFailure refusal = CheckListEntry(path)) {
        ShowNotice(DescribeUnreadable(path, refusal));
        return false;
    }
    edited.Begin(path);
    const bool ok = OpenToneListDialog(window, edited);
    if (edited.TakeSaved())
        files.TellSavedList(edited.GetPath());
    if (!ok || edited.GetPath().empty()) {
        RemoveUnused();
        return false;
    }
    SetListPath(tone, edited.GetPath());
    tone.waveform = ToneFromList;
    tone.flags |= ToneFlagDuration; // a list ends
    return true;
}

void ToneLists::RemoveUnused() {
    std::set<std::string> named;
    const auto add = [&named](const SonvireData& each) {
        if (each.IsList())
            named.insert(each.GetListPath());
    };
    add(tone);
    history.ForEach([&add](const ToneState& state) { add(state.tone); });
    edited.RemoveUnused(named);
}

bool ToneLists::OfferLostList() {
    if (!EditedList::HasLostDraft())
        return false;
    const LMessageAnswer answer = LShowMessageBox(
        "Tone List",
        "Sonvire ended while a tone list was edited. What was not saved is still there.\n\nDo "
        "you want to go on with it? With No, it is lost.",
        LMessageButtons::YesNoCancel);
    if (window.GetToolkit().IsSessionEnding())
        return false;
    if (answer == LMessageAnswer::No)
        EditedList::DropLostDraft();
    if (answer != LMessageAnswer::Yes)
        return false;
    std::string path;
    if (const LFailure failure = edited.RecoverDraft(path)) {
        ShowNotice(DescribeNoTemporary(failure));
        return false;
    }
    return CmEditList(path);
}

LMessageAnswer ToneLists::AskToSave() {
    const std::string list = tone.IsList() ? tone.GetListPath() : "";
    if (!IsUnsaved(list))
        return LMessageAnswer::No;
    const LMessageAnswer answer = LShowMessageBox(
        "Tone List",
        "The tone list is not saved. Do you want to save it?\n\nWith No, \"Load List\" offers "
        "it until another list takes its place.",
        LMessageButtons::YesNoCancel);
    if (answer == LMessageAnswer::No)
        edited.MoveTo(list);
    return answer;
}

bool ToneLists::OfferUnsavedList() {
    const std::string& list = edited.GetPath();
    const bool plays = tone.IsList() && tone.GetListPath() == list;
    return !plays && IsUnsaved(list) &&
           LShowMessageBox("Tone List",
                           "There is a tone list that is not saved. Do you want to go on with it?",
                           LMessageButtons::YesNo) == LMessageAnswer::Yes;
}

bool ToneLists::CmLoadList() {
    if (OfferUnsavedList())
        return CmEditList(edited.GetPath());
    LFileChooser chooser{"Select Tone List to Open",
                         ProposeName(edited.GetPath()),
                         Setting::ListReadFolder.Get(),
                         {{"Tone list file", "*.tdl"}},
                         "tdl"};
    const std::string path = LChooseFileToRead(window, chooser);
    if (path.empty())
        return false;
    Setting::ListReadFolder.Set(chooser.folder);
    if (!HasExtension(path, ".tdl"))
        LShowMessageBox("Unrecognized File Type", "Not a tone list file", LMessageButtons::OkCancel);
    else if (!CmEditList(path))
        return tone.IsList();
    return true;
}

bool ToneLists::CmSaveList() {
    if (!tone.IsList()) {
        LShowMessageBox("Error", "The tone is no list, so there is none to save.");
        return false;
    }
    const std::string list = tone.GetListPath();
    LFileChooser chooser{"Save Tone List to File",
                         ProposeName(list),
                         Setting::ListSaveFolder.Get(),
                         AddHighQuality({{"Tone List", "*.tdl;"}, {"Wave File", "*.wav"}}),
                         "tdl",
                         GetFileKinds()};
    const std::string path = LChooseFileToSave(window, chooser);
    if (path.empty())
        return false;
    Setting::ListSaveFolder.Set(chooser.folder);
    const bool renders = HiresFileKind::Find(path) != nullptr;
    if (renders)
        files.CmSaveSound(path);
    if (renders || !CopyList(list, path))
        return false;
    SetListPath(tone, path);
    if (edited.GetPath() == list)
        edited.MoveTo(path);
    files.TellSavedList(path);
    return true;
}

bool ToneLists::CopyList(const std::string& list, const std::string& path) {
    if (const LFailure unreadable = CheckReadable(list)) {
        ShowNotice(DescribeUnreadable(list, unreadable));
        return false;
    }
    LFailure failure = CheckListEntry(path);
    if (!IsSameFile(list, path) && IsReadByList(path, ExamineToneList(list)))
        failure = "the list plays it";
    else if (!failure)
        failure = CopyListFile(list, path);
    if (failure)
        ShowNotice(DescribeUnwritten(path, failure));
    return !failure;
}
