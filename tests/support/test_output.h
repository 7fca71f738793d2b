#pragma once

#include "play/channel_feed.h"
#include "play/sound_channel.h"

#include <algorithm>
#include <cmath>
#include <mutex>
#include <vector>

/// An output whose clock the test drives: frames are taken and heard when the test says so. The test is the
/// output's thread.
class TestOutput {
public:
    LSoundChannelOpener Opener() {
        return [this](const LSoundChannelRequest& request) {
            auto feed = std::make_shared<LChannelFeed>(request.format, request.ring, 0);
            const std::scoped_lock lock(mutex);
            current = feed;
            asked = std::make_shared<LSoundChannelRequest>(request);
            queuedFrames = 0;
            taken = 0;
            state = LSoundChannelState::Open;
            ++opened;
            return std::make_unique<Channel>(*this, feed);
        };
    }

    /// Takes `frames` frames, in 16 bits or, of floats, in 32; all but the last `latency` frames taken so far
    /// are heard then. A negative one stands for an output that ran dry and counted on.
    std::vector<int> Take(int frames, int latency = 0) {
        const std::shared_ptr<LChannelFeed> feed = GetFeed();
        const LPlayFormat format = GetRequest().format;
        std::vector<float> floats(static_cast<std::size_t>(frames * format.channels), 0.3F);
        std::vector<std::int16_t> out(floats.size(), 0x5EE);
        const bool isFloat = format.sample == LPlayFormat::Sample::Float;
        isFloat ? feed->Fill(floats.data(), frames) : feed->Fill(out.data(), frames);
        taken += frames;
        feed->SetPosition(static_cast<std::uint64_t>(std::max(0L, taken - latency)));
        std::vector<int> all(out.begin(), out.end());
        if (isFloat)
            std::transform(floats.begin(), floats.end(), all.begin(),
                           [](float sample) { return static_cast<int>(std::lround(sample * 0x1p31)); });
        return all;
    }

    void Fail(LSoundChannelState failure) {
        state = failure;
        GetRequest().ring->done.Signal();
    }

    std::shared_ptr<LChannelFeed> GetFeed() {
        const std::scoped_lock lock(mutex);
        return current;
    }
    LSoundChannelRequest GetRequest() {
        const std::scoped_lock lock(mutex);
        return *asked;
    }

    std::atomic<int> opened = 0, closed = 0, queuedFrames = 0;
    std::atomic<std::uint32_t> volume = 0;

private:
    class Channel : public LSoundChannel {
    public:
        Channel(TestOutput& testOutput, std::shared_ptr<LChannelFeed> testFeed)
            : output(testOutput),
              feed(std::move(testFeed)) {}
        ~Channel() override {
            feed->FadeOut();
            ++output.closed;
        }
        void Queue(LSoundPlayerBuffer& buffer) override {
            feed->Queue(buffer);
            output.queuedFrames += buffer.frames;
        }
        void SetVolume(std::uint32_t word) override {
            feed->SetVolume(word);
            output.volume = word;
        }
        LSoundChannelState GetState() const override { return output.state; }

    private:
        TestOutput& output;
        std::shared_ptr<LChannelFeed> feed;
    };

    std::mutex mutex;
    std::shared_ptr<LChannelFeed> current;
    std::shared_ptr<LSoundChannelRequest> asked;
    std::atomic<LSoundChannelState> state = LSoundChannelState::Open;
    long taken = 0;
};
