#pragma once

#include <algorithm>
#include <cstddef>
#include <deque>
#include <optional>
#include <utility>

/// The states that a user can go back to, and forward to again: whole values, the last hundred of them. Steps
/// of one series, such as those of a held key, are one.
template <class State>
class EditHistory {
public:
    static constexpr std::size_t Most = 100;
    static constexpr int NoSeries = 0;

    /// To be called with the state as it was before a change. It is kept, unless the change before this one
    /// was of the same series.
    void Keep(const State& before, int seriesOfChange = NoSeries) {
        const bool goesOn = seriesOfChange != NoSeries && seriesOfChange == series;
        series = seriesOfChange;
        undone.clear();
        if (goesOn)
            return;
        done.push_back(before);
        if (done.size() > Most)
            done.pop_front();
    }
    /// The next change begins a series of its own.
    void EndSeries() { series = NoSeries; }

    bool CanUndo() const { return !done.empty(); }
    bool CanRedo() const { return !undone.empty(); }
    /// Calls `use` with every state.
    template <class Use>
    void ForEach(Use use) const {
        for (const States* states : {&done, &undone})
            std::for_each(states->begin(), states->end(), use);
    }
    /// The state before the last change, given the one that is left; nothing where there is none.
    std::optional<State> Undo(const State& current) { return Move(done, undone, current); }
    std::optional<State> Redo(const State& current) { return Move(undone, done, current); }

private:
    using States = std::deque<State>;

    std::optional<State> Move(States& from, States& to, const State& current) {
        EndSeries();
        if (from.empty())
            return {};
        to.push_back(current);
        std::optional<State> state = std::move(from.back());
        from.pop_back();
        return state;
    }

    States done, undone;
    int series = NoSeries;
};
