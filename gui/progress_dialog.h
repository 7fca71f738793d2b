#pragma once

#include "gui/dialog.h"

/// Shows how far a long job has got, modal to the whole application, while the job runs on the calling
/// thread. Cancel, Escape and closing the window all ask the job to stop; the window itself goes when the job
/// has returned. Its controls are those of `ProgressControl`.
class LProgressDialog : public LDialog {
public:
    /// The title is the caption and, until the job sets it, the text of control 101. Not owned.
    explicit LProgressDialog(const char* jobTitle);

    /// Runs `MainFunction` under the dialog and returns its result.
    int Open(LWindow& parent);
    /// Lets the user interface run for as long as something waits for it, then tells whether to stop. A job
    /// asks this regularly: nothing else moves while it runs.
    bool IsToStop() const;

protected:
    /// The job; not 0 once it has run.
    virtual int MainFunction() = 0;
    void InitDialog() override;
    void Close(int ok) override;

private:
    const char* title;
    bool stop = false;
};
