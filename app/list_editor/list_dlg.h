#pragma once

#include "app/list_editor/edited_list.h"
#include "app/list_editor/entry_rows.h"
#include "gui/dialog.h"
#include "sys/notice.h"

#include <map>

struct ExpandedEntry;

/// The tone list editor: its rows are the entries of a tone list in playing order, files by their paths and
/// silences.
///
/// The list file changes only when the user saves it.
class ListDlg : public LDialog {
public:
    explicit ListDlg(EditedList editedList);

    /// Which file it is in now.
    const EditedList& GetList() const { return edited; }

    void Command(int command) override;
    void EvDropFilesOnList(int control, const std::vector<std::string>& paths, int before) override;

protected:
    void InitDialog() override;
    void DestroyDialog() override;
    void EnableControls() override;
    bool KeyPressed(const LKeyPress& key) override;
    bool CmOk() override;
    void CmCancel() override;
    void CmHelp() override;

private:
    void OpenList();
    void ReadList();

    void CmAddTone();
    void CmAddSilence();
    void CmEditSilence();
    void CmMove(int step);
    void CmRemove();
    void CmUndo();
    void CmRedo();
    void CmRowsMenu();
    // True where the rows are in a file of the user's.
    bool CmSaveList();
    bool CmSaveAs();

    // Rows.
    /// False, with a notice, where the file is refused.
    bool AddFile(const std::string& path, int row, std::vector<LNotice>& notices);
    void AddEntries(const ExpandedEntry& expanded, int row, std::vector<LNotice>& notices);
    void ShowAdded();
    /// The silence that alone is selected, -1 where it is something else.
    int GetSelectedSilence() const;
    void Modify(EntryRows::Series series = EntryRows::NoSeries);
    void Follow(bool changed);
    void ShowState();
    void ShowTotal();

    // list_dlg_save.cpp
    std::vector<std::string> GetLines(const std::string& folder) const;
    bool SaveTo(const std::string& path);
    bool SaveToTemporary();
    bool KeepChanges();
    bool MayDropChanges();

    EditedList edited;
    std::unique_ptr<EntryRows> rows;
    std::string openedIn;                       ///< the folder of the list file
    std::map<std::string, std::string> written; ///< what entries that lie there are named in it
    bool modified = false;                      ///< the rows are others than in the list file
    bool accepted = false;                      ///< closed with OK
};

/// Lets the user edit the list, a new one where it has no file, and returns in which file it is then. True
/// where the editor was closed with OK.
bool OpenToneListDialog(LWindow& parent, EditedList& list);
