#include "sound/files/waiting_wave.h"

LWaitingWave::LWaitingWave(const std::string& filePath, const LWaveFile& opened,
                           std::shared_ptr<LSourceNews> sourceNews)
    : LSoundSourceBase(opened.source->sampleRate, opened.source->channels, opened.source->peakMax),
      path(filePath),
      header(opened.header),
      news(std::move(sourceNews)),
      end(opened.source->GetEndSample()),
      streaming(opened.source->IsStreaming()) {}

void LWaitingWave::Load() {
    const LWaveFile opened = LWaveFile::Open(path.c_str(), header);
    const bool fits = opened.source->sampleRate == sampleRate && opened.source->channels == channels;
    if (opened.source->status == SoundUsable && fits) {
        header = opened.header;
        file = opened.source;
        return;
    }
    const std::string reason = opened.source->status != SoundUsable
                                   ? LWaveFile::ExplainStatus(opened.source->status)
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
