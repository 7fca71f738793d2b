#include "sound/files/waiting_wave.h"

LWaitingWave::LWaitingWave(const std::string& filePath, const LSoundSource& opened,
                           std::shared_ptr<LSourceNews> sourceNews)
    : LSoundSourceBase(opened->sampleRate, opened->channels, opened->peakMax),
      path(filePath),
      news(std::move(sourceNews)),
      end(opened->GetEndSample()),
      streaming(opened->IsStreaming()) {}

void LWaitingWave::Load() {
    const LSoundSource opened = LWaveFile::OpenSource(path.c_str());
    const bool fits = opened->sampleRate == sampleRate && opened->channels == channels;
    if (opened->status == SoundUsable && fits) {
        file = opened;
        return;
    }
    const std::string reason = opened->status != SoundUsable
                                   ? LWaveFile::ExplainStatus(opened->status)
                                   : "has been replaced by a file of another format";
    news->Tell({path, reason});
    streaming = false;
}

void LWaitingWave::Seek(int frame) {
    if (!IsLoaded())
        Load();
    file->Seek(frame);
    position = frame;
}

void LWaitingWave::Read(int* buffer, int frames) {
    position = WrapAdd(position, frames);
    if (IsLoaded())
        file->Read(buffer, frames);
    else
        ClearAudioBuffer(buffer, frames, channels);
}

int LWaitingWave::GetPositionSample() const {
    return IsLoaded() ? file->GetPositionSample() : position;
}

int LWaitingWave::GetEndSample() const {
    return IsLoaded() ? file->GetEndSample() : end;
}

bool LWaitingWave::IsStreaming() const {
    return IsLoaded() ? file->IsStreaming() : streaming;
}

void LWaitingWave::Unload() {
    if (!IsLoaded())
        return;
    position = GetPositionSample();
    end = GetEndSample();
    streaming = IsStreaming();
    file.Close();
}
