#pragma once

#include <string>

/// What went wrong, or that nothing did: the result of whatever can fail. True where something went wrong:
///
///     if (const LFailure failure = file.Write(data, bytes))
///         Refuse(path, failure.GetReason());
class [[nodiscard]] LFailure {
public:
    /// Nothing went wrong.
    LFailure() = default;
    /// A reason in words for the user that follow the name of a file, as in "is damaged".
    LFailure(std::string words) : reason(std::move(words)) {} // NOLINT(google-explicit-constructor)
    LFailure(const char* words) : reason(words) {}            // NOLINT(google-explicit-constructor)

    /// What an error number of the system means.
    static LFailure OfSystem(int error);
    /// What the system call has met that has just failed. Read right behind the call: whatever comes between
    /// may set another number.
    static LFailure OfLastCall();

    explicit operator bool() const { return !reason.empty(); }
    const std::string& GetReason() const { return reason; } ///< empty where nothing went wrong
    int GetError() const { return error; }                  ///< the system's number, 0 where there is none

private:
    std::string reason;
    int error = 0;
};
