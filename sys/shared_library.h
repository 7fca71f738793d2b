#pragma once

#include "sys/failure.h"

/// A library of the system that is loaded when it is first used, and stays to the end of the process: its
/// threads may outlive what has started them. Those of ours derive from this, with a member for each function
/// that is used:
///
///     decltype(&sf_close) close = Find("sf_close");
class LSharedLibrary {
public:
    LSharedLibrary(const LSharedLibrary&) = delete;
    LSharedLibrary& operator=(const LSharedLibrary&) = delete;

    /// False where it is not installed, or lacks one of the functions: then none may be called.
    bool IsThere() const { return isThere; }
    /// That a file needs it, where it is not there.
    LFailure GetFailure() const;

protected:
    class Symbol {
    public:
        explicit Symbol(void* found) : address(found) {}
        template <class Function>
        operator Function*() const { // NOLINT(google-explicit-constructor): the member knows its type
            return reinterpret_cast<Function*>(address);
        }

    private:
        void* address;
    };

    /// By the name that its users link to, as in "libsndfile.so.1".
    explicit LSharedLibrary(const char* nameOfLibrary);
    ~LSharedLibrary() = default;

    Symbol Find(const char* function);

private:
    const char* name;
    void* handle;
    bool isThere;
};
