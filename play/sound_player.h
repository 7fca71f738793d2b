#pragma once

#include "play/hires_sound.h"
#include "play/playback.h"
#include "play/player_notify.h"
#include "sound/sound_source.h"

#include <string>

/// What a volume leaves of the samples, in 256ths: none at -36 dB and less, 180 at 0 dB, 240 at 12 dB, all
/// from 13 dB on.
int GetVolumeLevel(LDB volume);

/// Plays one source at a time through an output. An `LSoundSource` plays at its rate and channel count in 16
/// bits; one that may exceed them is limited, and one of a rate that no output takes is converted to the
/// nearest. A source of the high-resolution engine plays in float at the output's own rate. The owner, who
/// made the player on the main thread, gets the notifications from its event loop; no call waits for the
/// output.
class LSoundPlayer : private LThreadQueuedNotify, private LSoundPlayerNotify {
public:
    /// `opener` makes the channel of every playback, on the playback's thread. `finder` learns the rate of an
    /// output; without it, or where it doesn't know, that is 48000.
    explicit LSoundPlayer(LSoundChannelOpener opener, LOutputRateFinder finder = {});
    /// As `Stop`.
    ~LSoundPlayer() override;

    /// Who is notified, until told otherwise; null for nobody. Thread: owner. Blocks: no. Allocates: no.
    void SetNotify(LSoundPlayerNotify* target, long id);
    /// Both are used by the next `Start`. Thread: owner. Blocks: no. Allocates: yes.
    void SetDevice(const LSoundPlayDevice& device);
    void SetTitle(const std::string& text);

    /// Stops what plays, then starts `source` where it stands. False, with nothing started, where the source
    /// is unusable. An output that can't be opened ends the playback right after its start, with a status.
    /// The player alone reads the source from then on. Thread: owner. Blocks: as `Stop`. Allocates: yes.
    bool Start(const LSoundSource& source);
    /// Stops what plays, then starts what `opener` makes for the output's rate, from its beginning. Where it
    /// makes nothing, the playback ends with `PlayNoSound`. Thread: owner. Blocks: as `Stop`. Allocates: yes.
    void Start(const LHiresOpener& opener);
    /// What is cut off fades out over 5 ms. Stopping what is stopped does nothing. Thread: owner. Blocks: no,
    /// but for a source that is being opened or read. Allocates: yes.
    void Stop();
    /// Thread: owner. Blocks: no. Allocates: no.
    bool IsPlaying() const { return playback != nullptr; }
    /// Of the playback that is on, or of the last one; set before its `spntfStop`. Thread: owner. Blocks: no.
    /// Allocates: no.
    LPlayStatus GetStatus() const;
    /// What the output has been asked for by the playback that is on; nothing where none is, or its source is
    /// not open yet. Known at the first report. Thread: owner. Blocks: no. Allocates: no.
    std::optional<LPlayFormat> GetFormat() const;

    /// Stays until it is set again; without it, samples stay as they are. Thread: owner. Blocks: no.
    /// Allocates: no.
    void SetPlayVolume(LDB level) { SetPlayVolumeStandard(level); }
    void SetPlayVolumeStandard(LDB level);

private:
    bool Open(int lowestRate);
    void OpenFaster();
    void Begin(std::unique_ptr<LPlayedSound> sound);
    void TellStart(LSoundTime position);
    void EvNotify() override;
    bool HasEnded() const { return playback && playback->HasEnded(); }
    void NotifyTime(LSoundTime time);

    const LSoundChannelOpener open;
    const LOutputRateFinder findRate;
    LSoundPlayerNotify* notify = this;
    long notifyId = 0;
    LSoundPlayDevice playDevice;
    std::string title;
    std::optional<std::uint32_t> volume; ///< volume word
    std::unique_ptr<LPlayback> playback; ///< null while stopped
    LSoundSource source;                 ///< what plays, in 16 bits
    int start = 0;                       ///< where it began, in the source
    LPlayStatus status = PlayUsable;     ///< of the last one
    LSoundPlayerRing::Silence previous;  ///< of the last one
    LThreadCheck owner;
};
