#pragma once

#include "hires/files/piped_file.h"
#include "hires/files/sndfile_library.h"
#include "sys/failure.h"
#include "sys/file.h"
#include "sys/write_pace.h"

#include <optional>
#include <string>
#include <string_view>

/// libsndfile at work on a file of ours, so that what the system says of a write that fails is known.
class HiresSoundStream {
public:
    /// Reads a file.
    explicit HiresSoundStream(const std::string& path);
    /// Reads what is in an open file from its offset on.
    explicit HiresSoundStream(LOpenFile&& opened);
    /// Replaces what is in the file from its offset on. `format` is one of libsndfile's. In a pipe,
    /// `dataBytes` tells how long what follows the header will be.
    HiresSoundStream(LReadWriteFile&& opened, int format, int rate, int channels, std::int64_t dataBytes);
    ~HiresSoundStream();
    HiresSoundStream(const HiresSoundStream&) = delete;
    HiresSoundStream& operator=(const HiresSoundStream&) = delete;

    /// Why it did not open, or the first write that has failed.
    const LFailure& GetFailure() const { return failure; }
    /// For libsndfile's functions; null where it did not open, and once closed.
    SNDFILE* Get() const { return handle; }
    const SF_INFO& GetInfo() const { return info; }
    /// More frames than any file has; lengths below can be added up for hundreds of thousands of files.
    static constexpr std::int64_t MostFrames = std::int64_t{1} << 45;
    /// How long the file is, in frames; nothing where it does not tell, such as a FLAC file that went into a
    /// pipe.
    std::optional<std::int64_t> GetLength() const;
    /// The same for before it is read; one that does not tell is read through.
    std::int64_t CountFrames();
    /// How many more there were before it was cut short, by its own account.
    std::int64_t CountMissingFrames() const { return missing; }
    /// Whether libsndfile guesses the length from that of the file, or finds the first of several sounds.
    bool IsLengthGuessed() const;
    /// Where that is so, behind the end: whether there is more than it has found.
    bool HasMore() const;

    /// Interleaved, full scale being 1; answers how many frames there were, fewer at the end only.
    std::size_t Read(double* out, std::size_t frames);

    /// In a pipe, for once all is said that stands in the header: writes it as that of so many frames.
    void BeginPipe(std::int64_t frames);

    /// Completes the file.
    void Close();

private:
    struct Callbacks;

    void Open(int mode, const char* refusal);
    void OpenToRead();
    void Write(std::string_view text);
    void Keep(LFailure unwritten);

    LOpenFile file;
    std::int64_t start; ///< offset of the sound file's first byte; -1 in a pipe
    LWritePace pace{start};
    std::optional<HiresPipedFile> pipe;
    LFailure failure;
    SF_INFO info{};
    SNDFILE* handle = nullptr;
    std::int64_t missing = 0;
};
