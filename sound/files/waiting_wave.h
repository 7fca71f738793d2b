#pragma once

#include "sound/files/wave_file.h"
#include "sound/source_news.h"

#include <memory>
#include <string>

/// A WAVE file that is open only while it has its turn, so that thousands can wait: from a `Seek` on until it
/// is unloaded. A file that has taken its place by then plays if it has the same rate and channels. Where it
/// is gone, or another kind of file, silence plays for its length, and that is told.
class LWaitingWave : public LSoundSourceBase {
public:
    /// `opened` is the file's source, and usable; it is not kept. `sourceNews` is where a file that is not to
    /// be had is told.
    LWaitingWave(const std::string& filePath, const LSoundSource& opened,
                 std::shared_ptr<LSourceNews> sourceNews);

    void Read(int* buffer, int frames) override;
    int GetPositionSample() const override;
    /// While it waits, as it was last.
    int GetEndSample() const override;
    void Seek(int frame) override;
    bool IsStreaming() const override;
    void WaitForStreamingData(int milliseconds) override { file->WaitForStreamingData(milliseconds); }
    void Unload() override;

private:
    bool IsLoaded() const { return file->status == SoundUsable; }
    void Load();

    std::string path;
    std::shared_ptr<LSourceNews> news;
    LSoundSource file; ///< nothing behind it while it waits, and where it is not to be had
    int position = 0, end;
    bool streaming;
};
