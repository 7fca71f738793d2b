#pragma once

#include "play/cubeb_output.h"
#include "play/player_notify.h"
#include "play/sound_channel.h"
#include "sound/sound_source.h"
#include "sys/desktop/queued_notify.h"
#include "sys/thread.h"

#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

/// Why playback ended by itself, or doesn't begin.
enum LPlayStatus : std::uint8_t {
    PlayUsable = 0,
    PlayNoOutput = 1, ///< no sound server or card, or none that takes the source's format
    PlayNoDevice = 2, ///< the chosen output is not there
    PlayLost = 3,     ///< the output went away
};

/// Plays one source at a time through an output, at the source's rate and channel count in 16 bits; a source
/// that may exceed them is limited. A thread of its own reads the source, up to 64 blocks of 100 ms ahead of
/// what is heard. Every call is made on the thread that made the player, which gets the notifications there
/// from its event loop; no call waits for the output.
class LSoundPlayer : private LThread, private LThreadQueuedNotify, private LSoundPlayerNotify {
public:
    /// `opener` makes the channel of every playback, on the player's thread.
    explicit LSoundPlayer(LSoundChannelOpener opener = OpenCubebChannel);
    ~LSoundPlayer() override;

    /// Who is notified, until told otherwise; null for nobody.
    void SetNotify(LSoundPlayerNotify* target, long id);
    /// Both are used by the next `Start`.
    void SetDevice(const LSoundPlayDevice& device) { playDevice = device; }
    void SetTitle(const std::string& text) { title = text; }

    /// Stops what plays, then starts `source` where it stands. False, with nothing started, where the source
    /// is unusable. An output that can't be opened ends the playback right after its start, with a status.
    /// The player alone reads the source from then on.
    bool Start(const LSoundSource& source);
    /// Returns at once; what is cut off fades out over 5 ms. Stopping what is stopped does nothing.
    void Stop();
    bool IsPlaying() const { return playing; }
    /// Of the playback that is on, or of the last one; set before its `spntfStop`.
    LPlayStatus GetStatus() const { return status; }

    /// -36 dB and less is silence, 0 dB 180/256, 12 dB 240/256, and 13 dB and more leaves the samples as they
    /// are. Stays until it is set again; without it, samples stay as they are.
    void SetPlayVolume(LDB level) { SetPlayVolumeStandard(level); }
    void SetPlayVolumeStandard(LDB level);

private:
    /// What the player's thread has to tell.
    struct Report {
        int position = 0;
        LDBMC levels;
        bool changed = false;
    };

    void ThreadFunction() override;
    void EvNotify() override;

    // The player's thread.
    bool Refill();
    void SendVolume();
    void ReportHeard();
    void QueueBlock(int frames);
    void MeasureLevels(LSoundPlayerBuffer& buffer, int frames) const;
    void Rest();
    void RaisePriority();
    void End(LPlayStatus reason);
    bool CheckChannel();

    void NotifyTime(int position);

    const LSoundChannelOpener open;
    LSoundPlayerNotify* notify = this;
    long notifyId = 0;
    LSoundPlayDevice playDevice;
    std::string title;
    LSoundPlayerRing::Silence previous; ///< of the playback before

    std::mutex volumeMutex;
    std::optional<std::uint32_t> volume; ///< volume word, under the volume mutex
    bool volumePending = false;          ///< under the volume mutex: the channel doesn't have it yet

    std::mutex reportMutex;
    Report report; ///< under the report mutex

    bool playing = false;
    std::atomic<bool> ended = false; ///< the thread has nothing more to play and is ending
    std::atomic<LPlayStatus> status = PlayUsable;
    LSoundSource source; ///< the thread's while it runs

    // Made by `Start`, then the thread's.
    LSoundChannelRequest request{};
    std::shared_ptr<LSoundPlayerRing> ring;
    std::vector<int> work; ///< one block
    int blockFrames = 0;
    std::unique_ptr<LSoundChannel> channel;
    unsigned int written = 0;  ///< buffers queued
    unsigned int reported = 0; ///< buffers heard and reported
    bool raised = false;
};
