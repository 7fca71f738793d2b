#pragma once

#include "sys/failure.h"
#include "sys/file.h"

#include <set>
#include <utility>
#include <vector>

/// The tone list that the user edits: the file that it is in, which the settings keep as well, and the one
/// owner of the temporary files that it is in until the user saves it.
class EditedList {
public:
    /// The list that was edited last. What an earlier run has left in its editor is put aside.
    EditedList();

    /// From here on the list in this file is edited, a new one where the path is empty.
    void Begin(const std::string& file);
    /// True for one that an earlier run has left: nobody has saved it.
    bool IsRecovered() const { return !recovered.empty() && path == recovered; }
    /// Empty for a new list without a file.
    const std::string& GetPath() const { return path; }
    /// True as long as the user has not given it a name of a list's.
    bool IsUntitled() const { return untitled; }

    /// True where another program has written its file since it was opened or saved here.
    bool HasChanged() const;

    /// Puts a new list into a temporary file.
    LFailure CreateFile();
    /// The list has been written to this file.
    void MoveTo(const std::string& file);
    /// The same, and its user has asked for it.
    void SaveTo(const std::string& file) {
        MoveTo(file);
        saved = true;
    }
    /// True where it was since the last call.
    bool TakeSaved() { return std::exchange(saved, false); }

    // What is in the editor but not in the list's file is kept beside the tone, however the program ends.
    /// Done after every change; a failure is not told, as the rows are still there.
    static void KeepDraft(const std::vector<std::string>& rows);
    static void DropDraft();
    /// Whether an earlier run has left one.
    static bool HasLostDraft();
    /// Puts that one into a temporary list, whose name `file` is then; it is a draft again until that is
    /// closed.
    LFailure RecoverDraft(std::string& file);
    static void DropLostDraft();

    /// Of an editor that is cancelled: back to the list that was edited before, unless the user has saved
    /// this one elsewhere since.
    void Drop();
    /// Removes the temporary files that are neither this list's nor among those that the window names.
    void RemoveUnused(const std::set<std::string>& named);

private:
    void Own(const std::string& file);

    std::string path;
    LFileState state; ///< that its file was in
    bool untitled = true;
    bool saved = false;
    std::string recovered;             ///< the temporary list of what an earlier run has left
    std::string begun;                 ///< what it was in when it was begun
    std::string before;                ///< the list that was edited before
    std::set<std::string> temporaries; ///< that something has named in this run
};
