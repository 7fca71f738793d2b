#pragma once

#include "gui/dialog.h"
#include "gui/list_view.h"

/// The tone list editor: its rows are the entries of a tone list in playing order, files by their paths and
/// silences. It works on the list file that `GetEditedList` names, a new one in a temporary file where that
/// is empty, and leaves there the file that the list is in when it is closed with OK.
///
/// The list file changes only when the user saves it.
class ListDlg : public LDialog {
public:
    ListDlg();

    void Command(int command) override;
    void EvDropFilesOnList(int control, const std::vector<std::string>& paths, int before) override;

protected:
    void InitDialog() override;
    void DestroyDialog() override;
    void EnableControls() override;
    bool CmOk() override;
    void CmHelp() override;

private:
    void OpenList();

    void CmAddTone();
    void CmAddSilence();
    void CmMoveUp() { MoveRow(-1); }
    void CmMoveDown() { MoveRow(1); }
    void CmRemove();
    // True where the rows are in a file of the user's.
    bool CmSaveList();
    bool CmSaveAs();

    // Rows.
    /// False, with a box, where the file is refused.
    bool AddFile(const std::string& path, int row);
    void CmAddToneToLV(const std::string& path, int row);
    void InsertEntry(const std::string& entry, int row);
    void ShowAdded();
    void MoveRow(int step);
    std::vector<std::string> GetEntries() const;
    void Modify();
    void ShowTotal();

    // list_dlg_save.cpp
    bool SaveTo(const std::string& path);
    bool SaveToTemporary();
    bool KeepChanges();

    std::unique_ptr<LListView> list; ///< the user data of a row is its length in ms, or `UnknownLength`
    bool modified = false;           ///< the rows are others than in the list file
    bool untitled = true;            ///< the list has no file of the user's yet
    bool accepted = false;           ///< closed with OK
    std::string file;                ///< that the list is in
    std::string replacedList; ///< a temporary file that it was in, which goes once OK has put it into another
    std::string newList;      ///< the file of a new list, which goes where the list does not stay in it
};

/// True where it was closed with OK.
bool OpenToneListDialog(LWindow& parent);
