#pragma once

#include "gui/progress_dialog.h"
#include "sys/process_result.h"

/// Runs the job of type T under a progress dialog: the function `Process(LProgressDialog&, T&)` that goes
/// with it.
template <class T>
class LProcessDialog : public LProgressDialog {
public:
    /// The job must outlive the dialog.
    LProcessDialog(const char* jobTitle, T& job) : LProgressDialog(jobTitle), process(job) {}

    /// How the job has ended; failed as long as it has not.
    LProcessResult GetResult() const { return result; }

protected:
    int MainFunction() override {
        result = Process(static_cast<LProgressDialog&>(*this), process);
        return 1;
    }

private:
    LProcessResult result = LProcessResult::Failed;
    T& process;
};

/// The same in one call: true where the job was completed.
template <class T>
bool ProcessDialogRun(LWindow& parent, const char* title, T& process) {
    LProcessDialog<T> dialog(title, process);
    dialog.Open(parent);
    return dialog.GetResult() == LProcessResult::Completed;
}
