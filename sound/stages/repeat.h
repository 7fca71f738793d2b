#pragma once

#include "sound/sound_process.h"

/// Loops: plays the input from where it stands to the loop end, goes back to the loop start, and on for ever.
/// Kept quirk: a loop of less than 256 frames plays 256 frames on every pass, so that it never spins on tiny
/// reads.
class LSRCRepeat : public LSoundProcessBase {
public:
    /// In frames; given the other way round, the two are swapped.
    LSRCRepeat(const LSoundSource& wrapped, int start, int end);

    /// A request that ends at the loop end goes back before it returns. With a status, leaves the buffer as
    /// it was.
    void Read(int* buffer, int frames) override;
    /// Kept quirk: eight seconds past the loop end, so that what has no end shows a stable length.
    int GetEndSample() const override;
    /// At or past the loop end: the place within the loop.
    /// Kept quirk: it is counted from the input's beginning rather than from the loop start, which differ
    /// where the loop does not start at 0; an empty loop goes to its start.
    void Seek(int target) override;

private:
    int loopStart;
    int loopEnd;
};

/// Makes a source loop between two times; one with a status passes unchanged.
class LSPRepeat : public LSoundProcessor {
public:
    LSPRepeat(LSoundTime start, LSoundTime end) : loopStart(start), loopEnd(end) {}
    LSoundSource OpenSource(const LSoundSource& input) const override;

private:
    LSoundTime loopStart;
    LSoundTime loopEnd;
};
