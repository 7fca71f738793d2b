#pragma once

#include <functional>
#include <memory>

/// Work in the background of which only the newest is of use. One piece is done at a time, the next one
/// once that has noticed that it isn't wanted any more. Any thread.
class NewestWork {
public:
    using IsWanted = std::function<bool()>;
    /// It asks now and then whether it is still wanted, and so may what it has posted; it ends soon after it
    /// isn't.
    using Work = std::function<void(const IsWanted& isWanted)>;

    /// False where the system has no thread to give.
    bool Ask(Work work);
    /// None is wanted any more.
    void Drop();

private:
    struct Shared;
    static bool Start(const std::shared_ptr<Shared>& shared);

    std::shared_ptr<Shared> shared; ///< with the work
};
