#pragma once

#include "sys/failure.h"

#include <vector>

/// The tone list that the user edits: the file that it is in, which the settings keep as well, and the one
/// owner of the temporary files that it is in until the user saves it.
class EditedList {
public:
    /// The list that was edited last. What an earlier run has left in its editor is put aside.
    EditedList();

    /// From here on the list in this file is edited, a new one where the path is empty.
    void Begin(const std::string& file);
    /// Empty for a new list without a file.
    const std::string& GetPath() const { return path; }
    /// True as long as the user has not given it a name of a list's.
    bool IsUntitled() const { return untitled; }

    /// Puts a new list into a temporary file.
    LFailure CreateFile();
    /// The list has been written to this file.
    void MoveTo(const std::string& file);

    // What is in the editor but not in the list's file is kept beside the tone, however the program ends.
    /// Done after every change; a failure is not told, as the rows are still there.
    static void KeepDraft(const std::vector<std::string>& rows);
    static void DropDraft();
    /// Whether an earlier run has left one.
    static bool HasLostDraft();
    /// Puts that one into a temporary list, whose name `file` is then; it is a draft again until that is
    /// closed.
    static LFailure RecoverDraft(std::string& file);
    static void DropLostDraft();

    // How the editor closes.
    /// The list stays in its file; temporary ones that it was in go.
    void Keep();
    /// The list stays where it was before, or where the user has saved it since; a new one goes.
    void Drop();

private:
    std::string path;
    bool untitled = true;
    std::string created;  ///< the temporary file of a new list
    std::string replaced; ///< a temporary file that the list was in when it was begun
};
