#pragma once

#include "play/output_rate.h"
#include "play/played_sound.h"
#include "play/sound_channel.h"
#include "sys/queued_notify.h"
#include "sys/thread.h"
#include "sys/thread_check.h"

#include <memory>
#include <mutex>
#include <optional>
#include <string>

/// Why playback ended by itself, or doesn't begin.
enum LPlayStatus : std::uint8_t {
    PlayUsable = 0,
    PlayNoOutput = 1, ///< no sound server or card, or none that takes the source's format
    PlayNoDevice = 2, ///< the chosen output is not there
    PlayLost = 3,     ///< the output went away
    PlayTooSlow = 4,  ///< the output takes no rate as low; the player tries another then
    PlayNoSound = 5,  ///< what is to be played can't be had at the output's rate
};

/// One playback: a thread that reads a sound up to 64 blocks of 100 ms ahead of what is heard, until it
/// ends, the output fails or the playback is destroyed.
class LPlayback : private LThread {
public:
    /// What has been heard since the last report.
    struct Report {
        LSoundTime position; ///< in what is played
        LDBMC levels;        ///< of the block that ends there
        LSoundHeard heard;
    };

    /// `finder` asks for the output's rate and `opener` makes the channel, on the thread; without a finder
    /// the rate is the usual one. `toNotify` is posted to when there is a report, and once at the end.
    LPlayback(std::unique_ptr<LPlayedSound> toPlay, LOutputRateFinder finder, LSoundChannelOpener opener,
              LThreadQueuedNotify& toNotify);
    /// As `Finish`.
    ~LPlayback() override { Finish(); }

    /// `after` is the playback that this one follows; may be null. Without a volume word the samples stay as
    /// they are. Thread: owner. Blocks: no. Allocates: yes.
    void Begin(const LSoundPlayDevice& device, const std::string& title,
               const LSoundPlayerRing::Silence& after, std::optional<std::uint32_t> volumeWord);
    /// Ends it; what is cut off fades out. Returns why it had ended by itself, if it had. Thread: owner.
    /// Blocks: no, but for a sound that is being opened or read. Allocates: yes.
    LPlayStatus Finish();
    /// Thread: owner. Blocks: no. Allocates: no.
    void SetVolume(std::uint32_t word);
    /// Nothing where there is no news. Thread: owner. Blocks: no. Allocates: no.
    std::optional<Report> TakeReport();

    /// True once the thread has nothing more to play. Thread: any. Blocks: no. Allocates: no.
    bool HasEnded() const { return ended; }
    /// Why it has. Thread: any. Blocks: no. Allocates: no.
    LPlayStatus GetStatus() const { return status; }
    /// Nothing while the sound is not open yet. Thread: any. Blocks: no. Allocates: no.
    std::optional<LPlayFormat> GetFormat() const;
    /// Where it stops. Once it has ended. Thread: owner. Blocks: no. Allocates: no.
    LSoundTime GetEnd() const { return sound->GetEnd(); }
    /// What whoever follows has to wait for. Once it has finished. Thread: owner. Blocks: no. Allocates: no.
    LSoundPlayerRing::Silence GetSilence() const { return opened ? ring->silence : request.after; }

private:
    void ThreadFunction() override;
    bool Open();
    int FindRate();
    bool CheckChannel();
    bool Refill();
    void QueueBlock(int frames);
    void ReportHeard();
    void SendVolume();
    void Rest();
    void RaisePriority();
    void End(LPlayStatus reason);

    const std::unique_ptr<LPlayedSound> sound;
    const LOutputRateFinder findRate;
    const LSoundChannelOpener open;
    LThreadQueuedNotify& news;
    const std::shared_ptr<LSoundPlayerRing> ring = std::make_shared<LSoundPlayerRing>();
    LSoundChannelRequest request{}; ///< the format is the thread's until it is opened

    std::mutex mutex;
    std::optional<std::uint32_t> volume; ///< under the mutex: what the channel doesn't have yet
    std::optional<Report> report;        ///< under the mutex

    std::atomic<bool> opened = false; ///< the sound and the channel
    std::atomic<bool> ended = false;
    std::atomic<LPlayStatus> status = PlayUsable;

    // The thread's.
    std::unique_ptr<LSoundChannel> channel;
    unsigned int written = 0;  ///< buffers queued
    unsigned int reported = 0; ///< buffers heard and reported
    std::int64_t framesRead = 0;
    bool raised = false;

    LThreadCheck owner;
};
