#include "play/cubeb_output.h"

#include "play/channel_feed.h"
#include "play/cubeb_library.h"
#include "play/jack_guard.h"
#include "play/output_names.h"
#include "play/pulse_pin.h"
#include "play/room_for_output.h"
#include "play/server_turn.h"
#include "sys/background.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <stop_token>
#include <string_view>
#include <thread>

namespace {

using Clock = std::chrono::steady_clock;

constexpr const char* ProgramName = "Sonvire";
/// What stands between a frame and its being heard, and so between a stop and silence.
constexpr int LatencyMs = 35;
/// A fade takes as long as the machine is slow, but what has not been heard by then is stuck.
constexpr std::chrono::seconds FadeTimeout{2};
constexpr std::chrono::milliseconds FadePoll{2};
constexpr std::chrono::milliseconds WatchPoll{250};

int GetLatencyFrames(const LSoundChannelRequest& request) {
    return std::max(1, request.format.rate * LatencyMs / 1000);
}

/// A connection to the first of these that is there: PulseAudio (or PipeWire in its place), JACK, ALSA.
class Context {
public:
    Context() {
        PinPulseStreams();
        if (!Cubeb().IsThere() || !HasRoomForOutput() || Open("pulse"))
            return;
        isJack = IsJackRunning() && Open("jack");
        isAlsa = !isJack && Open("alsa");
    }
    ~Context() { Close(); }
    Context(const Context&) = delete;
    Context& operator=(const Context&) = delete;

    cubeb* Get() const { return context; }
    /// cubeb doesn't tell when a JACK server ends.
    bool IsGone() const { return isJack && !IsJackRunning(); }
    /// What cards are played through converts none that is lower.
    bool IsTooSlow(int rate) const { return isAlsa && rate < LSoundChannel::LowestCommonRate; }

private:
    /// cubeb takes another backend where this one is not there; such a one is not kept.
    bool Open(const char* backend) {
        if (Cubeb().init(&context, ProgramName, backend) != CUBEB_OK)
            context = nullptr;
        if (context &&
            !std::string_view(Cubeb().get_backend_id(context)).starts_with(backend)) // or "pulse-rust"
            Close();
        return context != nullptr;
    }
    void Close() {
        if (context)
            Cubeb().destroy(context);
        context = nullptr;
    }

    cubeb* context = nullptr;
    bool isJack = false, isAlsa = false;
};

/// The outputs that are there; valid while their context is.
class Outputs {
public:
    explicit Outputs(const Context& from) : context(from) {
        if (context.Get())
            valid = Cubeb().enumerate_devices(context.Get(), CUBEB_DEVICE_TYPE_OUTPUT, &found) == CUBEB_OK;
    }
    ~Outputs() {
        if (valid)
            Cubeb().device_collection_destroy(context.Get(), &found);
    }
    Outputs(const Outputs&) = delete;
    Outputs& operator=(const Outputs&) = delete;

    std::vector<CubebOutput> List() const {
        std::vector<std::string> names;
        for (const cubeb_device_info& each : *this)
            names.emplace_back(each.friendly_name ? each.friendly_name : each.device_id);
        names = TellApart(names);
        std::vector<CubebOutput> listed;
        for (const cubeb_device_info& each : *this)
            listed.push_back({.systemName = each.device_id,
                              .name = names[listed.size()],
                              .isDefault = each.preferred != CUBEB_DEVICE_PREF_NONE});
        return listed;
    }

    /// Null where it is not there. A server may name no default, while it looks for one: then any does.
    const cubeb_device_info* Find(const LSoundPlayDevice& device) const {
        const std::vector<CubebOutput> listed = List();
        const auto find = [&](auto is) { return std::find_if(listed.begin(), listed.end(), is); };
        auto output = find([&](const CubebOutput& each) { return device.Is(each.systemName, each.name); });
        if (output == listed.end() && device.MayBeDefault())
            output = find([](const CubebOutput& each) { return each.isDefault; });
        if (output == listed.end() && device.MayBeDefault())
            output = listed.begin();
        return output == listed.end() ? nullptr : begin() + (output - listed.begin());
    }

private:
    const cubeb_device_info* begin() const { return found.device; }
    const cubeb_device_info* end() const { return found.device + found.count; }

    const Context& context;
    cubeb_device_collection found{};
    bool valid = false;
};

// Never destroyed: what hangs may yet come back to them.
ServerQueue& openings = *new ServerQueue;
ServerQueue& listings = *new ServerQueue;

/// What the channel, its background thread and cubeb's threads share.
struct Shared {
    explicit Shared(const LSoundChannelRequest& asked)
        : request(asked),
          feed(asked.format, asked.ring, GetLatencyFrames(asked)) {}

    /// Only what is still opening goes on to another state, so that a failure is final.
    void FinishOpening(LSoundChannelState next) {
        LSoundChannelState before = LSoundChannelState::Opening;
        state.compare_exchange_strong(before, next);
        request.ring->done.Signal();
    }
    void Fail() {
        LSoundChannelState before = LSoundChannelState::Open;
        state.compare_exchange_strong(before, LSoundChannelState::Lost);
        *request.ring->silence = true;
        FinishOpening(LSoundChannelState::NoOutput);
    }

    const LSoundChannelRequest request;
    LChannelFeed feed;
    std::stop_source close;
    ServerTurn turn{openings};
    std::atomic<LSoundChannelState> state = LSoundChannelState::Opening;
};

// cubeb's thread.
long FillOutput(cubeb_stream* stream, void* user, const void* /*input*/, void* output, long frames) {
    LChannelFeed& feed = static_cast<Shared*>(user)->feed;
    std::uint64_t position = 0;
    const bool known = stream && Cubeb().stream_get_position(stream, &position) == CUBEB_OK;
    feed.Fill(output, static_cast<int>(frames));
    if (known)
        feed.SetPosition(position);
    return frames; // never less: silence follows the end until all of it has been heard
}

// cubeb's thread.
void NoteState(cubeb_stream* /*stream*/, void* user, cubeb_state state) {
    if (state == CUBEB_STATE_ERROR)
        static_cast<Shared*>(user)->Fail();
}

/// A stream, made ready to play.
class Stream {
public:
    Stream(const Context& context, cubeb_devid device, Shared& shared) {
        const LSoundChannelRequest& request = shared.request;
        const bool isFloat = request.format.sample == LPlayFormat::Sample::Float;
        cubeb_stream_params format{.format = isFloat ? CUBEB_SAMPLE_FLOAT32NE : CUBEB_SAMPLE_S16NE,
                                   .rate = static_cast<std::uint32_t>(request.format.rate),
                                   .channels = request.format.channels,
                                   .layout = CUBEB_LAYOUT_UNDEFINED,
                                   .prefs = CUBEB_STREAM_PREF_DISABLE_DEVICE_SWITCHING};
        if (Cubeb().stream_init(context.Get(), &stream, request.title.c_str(), nullptr, nullptr, device,
                                &format, static_cast<std::uint32_t>(GetLatencyFrames(request)), FillOutput,
                                NoteState, &shared) != CUBEB_OK)
            stream = nullptr;
    }
    ~Stream() {
        if (!stream)
            return;
        Cubeb().stream_stop(stream);
        Cubeb().stream_destroy(stream);
    }
    Stream(const Stream&) = delete;
    Stream& operator=(const Stream&) = delete;

    bool Play() { return stream && Cubeb().stream_start(stream) == CUBEB_OK; }

private:
    cubeb_stream* stream = nullptr;
};

/// Not for ever: an output that hangs never gets there.
void WaitForSilence(const std::atomic<bool>& silence) {
    const Clock::time_point latest = Clock::now() + FadeTimeout;
    while (!silence && Clock::now() < latest)
        std::this_thread::sleep_for(FadePoll);
}

/// False where it has been waited for in vain.
bool WaitForStop(const std::stop_token& stop, std::chrono::milliseconds time) {
    std::mutex mutex;
    std::condition_variable_any never;
    std::unique_lock lock(mutex);
    never.wait_for(lock, stop, time, [] { return false; });
    return stop.stop_requested();
}

LSoundChannelState PlayUntilClosed(const Context& context, cubeb_devid device, Shared& shared) {
    shared.turn.Renew();
    if (shared.request.after)
        WaitForSilence(*shared.request.after); // both at once would be too loud
    shared.turn.Renew();
    const std::stop_token close = shared.close.get_token();
    if (close.stop_requested())
        return LSoundChannelState::NoOutput;
    Stream stream(context, device, shared); // not before: its position would count the wait
    if (!stream.Play())
        return context.IsTooSlow(shared.request.format.rate) ? LSoundChannelState::TooSlow
                                                             : LSoundChannelState::NoOutput;
    shared.turn.End();
    shared.FinishOpening(LSoundChannelState::Open);
    while (!WaitForStop(close, WatchPoll))
        if (context.IsGone())
            shared.Fail();
    if (shared.state == LSoundChannelState::Open)
        WaitForSilence(*shared.request.ring->silence);
    return LSoundChannelState::Open;
}

// The channel's background thread.
LSoundChannelState Run(Shared& shared) {
    if (!shared.turn.Begin(shared.close.get_token()))
        return LSoundChannelState::NoOutput;
    const Context context;
    if (!context.Get())
        return LSoundChannelState::NoOutput;
    const LSoundPlayDevice& device = shared.request.device;
    const Outputs outputs(context);
    // The default output is opened by its name as well: a stream that has none would follow the default.
    const cubeb_device_info* output = outputs.Find(device);
    if (!output && !device.MayBeDefault())
        return LSoundChannelState::NoDevice;
    return PlayUntilClosed(context, output ? output->devid : nullptr, shared);
}

class CubebChannel : public LSoundChannel {
public:
    explicit CubebChannel(const LSoundChannelRequest& request) : shared(std::make_shared<Shared>(request)) {
        if (!RunInBackground([state = shared] {
                state->FinishOpening(Run(*state));
                state->turn.End();
                *state->request.ring->silence = true;
            }))
            shared->FinishOpening(LSoundChannelState::NoOutput);
    }
    ~CubebChannel() override {
        shared->feed.FadeOut();
        shared->close.request_stop();
    }

    void Queue(LSoundPlayerBuffer& buffer) override { shared->feed.Queue(buffer); }
    void SetVolume(std::uint32_t word) override { shared->feed.SetVolume(word); }
    LSoundChannelState GetState() const override {
        const LSoundChannelState state = shared->state;
        const bool late = state == LSoundChannelState::Opening && shared->turn.IsLate();
        return late ? LSoundChannelState::NoOutput : state;
    }

private:
    std::shared_ptr<Shared> shared;
};

/// What a listing leaves behind for whoever waits for it.
struct Listing {
    std::mutex mutex;
    std::condition_variable finished;
    bool done = false;
    std::vector<CubebOutput> outputs;
};

std::vector<CubebOutput> ListNow() {
    ServerTurn turn(listings);
    if (!turn.Begin({}))
        return {};
    const Context context;
    return Outputs(context).List();
}

int FindRateNow(const LSoundPlayDevice& device, const std::stop_token& unwanted) {
    ServerTurn turn(listings);
    if (!turn.Begin(unwanted))
        return 0;
    const Context context;
    const Outputs outputs(context);
    const cubeb_device_info* output = outputs.Find(device);
    return output ? static_cast<int>(output->default_rate) : 0;
}

} // namespace

std::vector<CubebOutput> ListCubebOutputs() {
    const auto listing = std::make_shared<Listing>();
    const bool started = RunInBackground([listing] {
        std::vector<CubebOutput> outputs = ListNow();
        const std::scoped_lock lock(listing->mutex);
        listing->outputs = std::move(outputs);
        listing->done = true;
        listing->finished.notify_all();
    });
    std::unique_lock lock(listing->mutex);
    if (started)
        listing->finished.wait_for(lock, ServerQueue::Limit, [&] { return listing->done; });
    return listing->outputs;
}

std::shared_ptr<LOutputRate> FindCubebRate(const LSoundPlayDevice& device) {
    const auto question = std::make_shared<LOutputRate>();
    if (!RunInBackground([question, device] {
            question->rate = FindRateNow(device, question->forgotten.get_token());
            question->answered.Signal();
        }))
        question->answered.Signal();
    return question;
}

std::unique_ptr<LSoundChannel> OpenCubebChannel(const LSoundChannelRequest& request) {
    return std::make_unique<CubebChannel>(request);
}
