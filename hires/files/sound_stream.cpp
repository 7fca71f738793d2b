#include "hires/files/sound_stream.h"

#include "hires/files/missing_frames.h"

#include <algorithm>
#include <cstdio>
#include <utility>
#include <vector>

namespace {

constexpr std::size_t ChunkHeader = 8, PeakTime = 12; ///< bytes, and where the time is in the chunk

std::size_t GetChunkBytes(const std::string& file, std::size_t at) {
    std::size_t bytes = 0;
    for (std::size_t i = 0; i < 4; ++i)
        bytes |= std::size_t{static_cast<unsigned char>(file[at + 4 + i])} << (8 * i);
    return bytes;
}

/// The header of an RF64 file without the time in its PEAK chunk, which libsndfile can be told to leave out
/// of all kinds but this.
std::string BlankPeakTime(std::string header) {
    for (std::size_t at = 12; at + PeakTime + 4 <= header.size();
         at += ChunkHeader + (GetChunkBytes(header, at) + 1) / 2 * 2)
        if (header.compare(at, 4, "PEAK") == 0)
            std::fill_n(&header[at + PeakTime], 4, '\0');
    return header;
}

} // namespace

/// What libsndfile calls, with offsets from the start.
struct HiresSoundStream::Callbacks {
    static HiresSoundStream& Of(void* stream) { return *static_cast<HiresSoundStream*>(stream); }

    static sf_count_t GetLength(void* stream) {
        const HiresSoundStream& self = Of(stream);
        return self.pipe ? self.pipe->GetLength() : self.file.GetSize() - self.start;
    }

    static sf_count_t Tell(void* stream) {
        const HiresSoundStream& self = Of(stream);
        return self.pipe ? self.pipe->GetOffset() : self.file.GetOffset() - self.start;
    }

    static bool SeekTo(sf_count_t offset, HiresSoundStream& self) {
        sf_count_t target = 0;
        return self.pipe ? self.pipe->SeekTo(offset)
                         : !__builtin_add_overflow(offset, self.start, &target) && self.file.SeekTo(target);
    }

    static sf_count_t Seek(sf_count_t offset, int whence, void* stream) {
        const sf_count_t base = whence == SEEK_SET   ? 0
                                : whence == SEEK_CUR ? Tell(stream)
                                                     : GetLength(stream);
        sf_count_t target = 0;
        const bool overflows = __builtin_add_overflow(base, offset, &target);
        return !overflows && SeekTo(target, Of(stream)) ? Tell(stream) : -1;
    }

    static sf_count_t Read(void* data, sf_count_t bytes, void* stream) {
        return static_cast<sf_count_t>(Of(stream).file.Read(data, static_cast<std::size_t>(bytes)));
    }

    static sf_count_t Write(const void* data, sf_count_t bytes, void* stream) {
        HiresSoundStream& self = Of(stream);
        const std::string_view text(static_cast<const char*>(data), static_cast<std::size_t>(bytes));
        const bool isRf64 = (self.info.format & SF_FORMAT_TYPEMASK) == SF_FORMAT_RF64;
        if (isRf64 && Tell(stream) == 0)
            self.Write(BlankPeakTime(std::string(text)));
        else
            self.Write(text);
        return self.failure ? 0 : bytes;
    }
};

HiresSoundStream::HiresSoundStream(const std::string& path)
    : file(LSharedReadFile(path.c_str())),
      start(0),
      failure(CheckReadable(path)) {
    OpenToRead();
}

HiresSoundStream::HiresSoundStream(LOpenFile&& opened) : file(std::move(opened)), start(file.GetOffset()) {
    OpenToRead();
}

void HiresSoundStream::OpenToRead() {
    Open(SFM_READ, "is damaged or of a kind that is not read");
    if (!handle)
        return;
    missing = ::CountMissingFrames(handle, info);
    if (missing < 0 || missing > MostFrames)
        missing = 0;
}

HiresSoundStream::HiresSoundStream(LReadWriteFile&& opened, int format, int rate, int channels,
                                   std::int64_t dataBytes)
    : file(std::move(opened)),
      start(file.GetOffset()) {
    info.format = format;
    info.samplerate = rate;
    info.channels = channels;
    if (start < 0)
        pipe.emplace(dataBytes);
    static_cast<void>(file.Truncate(start)); // a device has no size
    Open(SFM_WRITE, "can't be written as a file of this kind");
}

HiresSoundStream::~HiresSoundStream() {
    Close();
}

void HiresSoundStream::Open(int mode, const char* refusal) {
    Keep(file.GetFailure());
    Keep(Sndfile().GetFailure());
    if (failure)
        return;
    SF_VIRTUAL_IO calls{Callbacks::GetLength, Callbacks::Seek, Callbacks::Read, Callbacks::Write,
                        Callbacks::Tell};
    handle = Sndfile().open_virtual(&calls, mode, &info, this);
    if (!handle)
        Keep(refusal);
}

std::optional<std::int64_t> HiresSoundStream::GetLength() const {
    return info.frames <= MostFrames ? std::optional(info.frames) : std::nullopt;
}

std::int64_t HiresSoundStream::CountFrames() {
    if (const std::optional<std::int64_t> length = GetLength())
        return *length;
    constexpr std::size_t AtOnce = 1024;
    std::vector<double> block(AtOnce * static_cast<std::size_t>(info.channels));
    std::int64_t all = 0;
    while (const std::size_t some = Read(block.data(), AtOnce))
        all += static_cast<std::int64_t>(some);
    return all;
}

bool HiresSoundStream::IsLengthGuessed() const {
    const int type = info.format & SF_FORMAT_TYPEMASK;
    return type == SF_FORMAT_MPEG || type == SF_FORMAT_OGG;
}

bool HiresSoundStream::HasMore() const {
    constexpr std::int64_t MostBehind = 1024; // of tags
    return IsLengthGuessed() && file.GetSize() - file.GetOffset() > MostBehind;
}

std::size_t HiresSoundStream::Read(double* out, std::size_t frames) {
    const sf_count_t got = Sndfile().readf_double(handle, out, static_cast<sf_count_t>(frames));
    return static_cast<std::size_t>(std::max<sf_count_t>(got, 0));
}

void HiresSoundStream::Write(std::string_view text) {
    Keep(pipe ? pipe->Write(file, text.data(), text.size()) : file.Write(text.data(), text.size()));
    pace.KeepUp(file, file.GetOffset());
}

/// libsndfile takes the file to be as long as it has written, so it gets to write the last frame, and the
/// first one, without which it goes to no other.
void HiresSoundStream::BeginPipe(std::int64_t frames) {
    if (!pipe)
        return;
    const int silence[2] = {};
    for (const std::int64_t frame : {std::int64_t{0}, frames - 1})
        if (frame < frames && Sndfile().seek(handle, frame, SEEK_SET) == frame)
            Sndfile().writef_int(handle, silence, 1);
    Sndfile().command(handle, SFC_UPDATE_HEADER_NOW, nullptr, 0);
    Sndfile().seek(handle, 0, SEEK_SET);
    Keep(pipe->Begin(file));
}

void HiresSoundStream::Close() {
    if (handle)
        Sndfile().close(std::exchange(handle, nullptr));
    Keep(file.Close());
}

void HiresSoundStream::Keep(LFailure unwritten) {
    if (!failure)
        failure = std::move(unwritten);
}
