#pragma once

#include "hires/files/piped_file.h"
#include "hires/files/sndfile_library.h"
#include "sys/failure.h"
#include "sys/file.h"
#include "sys/write_pace.h"

#include <optional>
#include <string_view>

/// libsndfile at work on a file of ours, so that what the system says of a write that fails is known.
class HiresSoundStream {
public:
    /// Reads what is in the file.
    explicit HiresSoundStream(LReadFile&& opened);
    /// Replaces what is in the file from its offset on. `format` is one of libsndfile's. In a pipe,
    /// `dataBytes` tells how long what follows the header will be.
    HiresSoundStream(LReadWriteFile&& opened, int format, int rate, int channels, std::int64_t dataBytes);
    ~HiresSoundStream();
    HiresSoundStream(const HiresSoundStream&) = delete;
    HiresSoundStream& operator=(const HiresSoundStream&) = delete;

    /// For libsndfile's functions; null where it can't read the file or write this format, where it is not
    /// there, and once closed.
    SNDFILE* Get() const { return handle; }
    const SF_INFO& GetInfo() const { return info; }

    /// In a pipe, for once all is said that stands in the header: writes it as that of so many frames.
    void BeginPipe(std::int64_t frames);

    /// Completes the file.
    void Close();
    /// The first write that has failed.
    const LFailure& GetFailure() const { return failure; }

private:
    struct Callbacks;

    void Open(int mode);
    void Write(std::string_view text);
    void Keep(LFailure unwritten);

    LOpenFile file;
    std::int64_t start; ///< offset of the sound file's first byte; -1 in a pipe
    LWritePace pace{start};
    std::optional<HiresPipedFile> pipe;
    LFailure failure;
    SF_INFO info{};
    SNDFILE* handle = nullptr;
};
