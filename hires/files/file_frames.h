#pragma once

#include "hires/file_facts.h"

#include <cstddef>
#include <memory>
#include <string>

class HiresSoundStream;

/// The frames of any sound file that libsndfile reads, as they are in the file: at its own rate, with all of
/// its channels, and beyond full scale where they are. Thread: one at a time. Blocks: yes.
class HiresFileFrames {
public:
    /// "-" is standard input. What comes by a pipe is first kept in a file without a name, in $TMPDIR or
    /// /var/tmp: most kinds can't be read without going back in them.
    explicit HiresFileFrames(const std::string& path);
    ~HiresFileFrames();
    HiresFileFrames(const HiresFileFrames&) = delete;
    HiresFileFrames& operator=(const HiresFileFrames&) = delete;

    /// Its failure is why nothing can be read.
    const HiresFileFacts& GetFacts() const { return facts; }
    /// Those frames that are there; nothing where the file does not tell.
    std::optional<std::int64_t> GetLength() const;
    /// Interleaved doubles, full scale being 1; answers how many frames there were, fewer at the end only.
    std::size_t Read(double* out, std::size_t frames);
    /// Behind the end: whether there is more in the file that is not read, as of a second sound in it.
    bool HasMore() const;

private:
    HiresFileFacts facts;
    std::unique_ptr<HiresSoundStream> stream; ///< null where there is none of standard input
};
