#pragma once

/// The result of a long job.
enum class LProcessResult : int {
    Completed = 0,
    Stopped = 1, ///< by the user
    Failed = 2,  ///< also before the job has run
};

/// The controls of a progress display that a job fills in.
enum ProgressControl : int {
    ProgressTitle = 101,
    ProgressStatus = 102,
    ProgressBar = 104,
};
