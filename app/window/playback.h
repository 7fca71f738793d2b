#pragma once

#include "app/window/device_list.h"
#include "gui/level_meter.h"
#include "play/sound_player.h"
#include "sound/source_news.h"
#include "tone/tone_data.h"

class LToolkit;
struct PlayInput;

/// What shows how the playback is going.
class PlaybackView {
public:
    virtual ~PlaybackView() = default;

    /// Of what is about to play, or of one turn of what `loops`; 0 for a tone without an end.
    virtual void SetLength(LSoundTime length, bool loops) = 0;
    /// The time since Play for what has no end.
    virtual void ShowPosition(LSoundTime position) = 0;
    /// What the output is asked for, and by how many dB the tone is lowered so that it fits into it.
    virtual void ShowFormat(const LPlayFormat& format, double loweredDb) = 0;
    /// Of what leaves the program.
    virtual void ShowLevels(const LMeterLevels& levels) = 0;
    virtual void ShowStopped() = 0;
};

/// From the settings, in -127..127 dB.
LDB ReadPlayVolume();

/// Plays the current tone through the output, at the volume and in the quality that the settings name. UI
/// thread only.
class Playback : private LSoundPlayerNotify {
public:
    /// `open` and `findRate` are the player's. All else must outlive this.
    Playback(LToolkit& windowToolkit, const SonvireData& currentTone, PlaybackView& playbackView,
             DeviceList& deviceList, LSoundChannelOpener open, LOutputRateFinder findRate = {});

    /// From here on `changed` is called each time the playback has started or stopped.
    void Begin(std::function<void()> changed);
    /// Stops; nothing is told any more.
    void End();

    void CmPlay();
    void Stop() { player.Stop(); }
    /// Plays the tone as it is now, where it was playing.
    void Restart();
    bool IsPlaying() const { return player.IsPlaying(); }
    /// Of what plays, too.
    void SetVolume(LDB decibels);

private:
    void TellProblems(const PlayInput& input);
    void TellNews();
    void TellLength(const PlayInput& input);
    void spntfPlay(long id) override;
    void spntfStop(long id) override;
    void spntfTime(LSoundTime time, long id) override;
    void spntfHeard(const LSoundHeard& heard, long id) override;

    LToolkit& toolkit;
    const SonvireData& tone;
    PlaybackView& view;
    DeviceList& devices;
    std::function<void()> tellChange;
    LSoundPlayer player;
    LDB volume;
    bool endless = false;                                                ///< what plays
    double loweredDb = 0;                                                ///< the same
    LSoundTime sinceStart;                                               ///< of the playback that is on
    std::shared_ptr<LSourceNews> news = std::make_shared<LSourceNews>(); ///< of what plays
    std::vector<LFileWarning> problems; ///< of the list that played last, which the user has been told
};
