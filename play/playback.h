#pragma once

#include "play/sound_channel.h"
#include "sound/sound_source.h"
#include "sound/stages/peak_limit.h"
#include "sys/queued_notify.h"
#include "sys/thread.h"
#include "sys/thread_check.h"

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
    PlayTooSlow = 4,  ///< the output takes no rate as low; the player tries another then
};

/// One playback: a thread that reads a source up to 64 blocks of 100 ms ahead of what is heard, until the
/// source ends, the output fails or the playback is destroyed.
class LPlayback : private LThread {
public:
    /// What has been heard since the last report.
    struct Report {
        int position = 0; ///< in frames of what is to be played
        LDBMC levels;     ///< of the block that ends there
        LSoundHeard heard;
    };

    /// `prepared` is what the output gets of `toPlay`, which it reads, by way of the limiter whose news are
    /// `limited`; all of them are the thread's from `Begin` on.
    /// `opener` makes the channel, on the thread; `toNotify` is posted to when there is a report, and once at
    /// the end.
    LPlayback(const LSoundSource& toPlay, const LSoundSource& prepared, std::shared_ptr<LLimiterNews> limited,
              const LSoundChannelOpener& opener, LThreadQueuedNotify& toNotify);
    /// As `Finish`.
    ~LPlayback() override { Finish(); }

    /// `after` is the playback that this one follows; may be null. Without a volume word the samples stay as
    /// they are. Thread: owner. Blocks: no. Allocates: yes.
    void Begin(const LSoundPlayDevice& device, const std::string& title,
               const LSoundPlayerRing::Silence& after, std::optional<std::uint32_t> volumeWord);
    /// Ends it; what is cut off fades out. Returns why it had ended by itself, if it had. Thread: owner.
    /// Blocks: no, but for a block that is being read. Allocates: yes.
    LPlayStatus Finish();
    /// Thread: owner. Blocks: no. Allocates: no.
    void SetVolume(std::uint32_t word);
    /// Nothing where there is no news. Thread: owner. Blocks: no. Allocates: no.
    std::optional<Report> TakeReport();

    /// True once the thread has nothing more to play. Thread: any. Blocks: no. Allocates: no.
    bool HasEnded() const { return ended; }
    /// Why it has. Thread: any. Blocks: no. Allocates: no.
    LPlayStatus GetStatus() const { return status; }
    /// What is to be played; while it is, only what never changes may be read from it. Thread: owner. Blocks:
    /// no. Allocates: no.
    const LSoundSource& GetSource() const { return original; }
    /// Thread: any. Blocks: no. Allocates: no.
    LSoundPlayerRing::Silence GetSilence() const { return ring->silence; }

private:
    void ThreadFunction() override;
    bool CheckChannel();
    bool Refill();
    void QueueBlock(int frames);
    int ToOriginal(int position) const;
    void MeasureLevels(LSoundPlayerBuffer& buffer, int frames);
    void ReportHeard();
    void SendVolume();
    void Rest();
    void RaisePriority();
    void End(LPlayStatus reason);

    const LSoundSource original, source;
    const std::shared_ptr<LLimiterNews> limiter;
    const LSoundChannelOpener open;
    LThreadQueuedNotify& news;
    LSoundChannelRequest request{};

    std::mutex mutex;
    std::optional<std::uint32_t> volume; ///< under the mutex: what the channel doesn't have yet
    std::optional<Report> report;        ///< under the mutex

    std::atomic<bool> ended = false;
    std::atomic<LPlayStatus> status = PlayUsable;

    // The thread's.
    const LPlayFormat format;
    const std::shared_ptr<LSoundPlayerRing> ring;
    std::vector<int> work; ///< one block
    std::unique_ptr<LSoundChannel> channel;
    unsigned int written = 0;  ///< buffers queued
    unsigned int reported = 0; ///< buffers heard and reported
    std::int64_t framesRead = 0;
    bool raised = false;

    LThreadCheck owner;
};
