#include "render_command.h"

#include "interrupt.h"
#include "progress_line.h"
#include "refusal.h"
#include "sound/render_job.h"
#include "sound/wave_file.h"
#include "sound_input.h"
#include "sys/file.h"
#include "sys/replaced_file.h"
#include "tone/tone_data.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <cstring>
#include <memory>
#include <optional>

namespace {

constexpr int MaxRate = 196000; // what the WAVE reader takes
/// The largest sample that doesn't wrap around in 8 bits.
constexpr int FullScale8 = 522'239;

struct RenderOptions {
    std::string input;
    std::string output;
    std::optional<int> rate;
    std::optional<int> channels;
    std::optional<unsigned int> durationMs;
    int bits = 16;
    bool quiet = false;
};

/// Stops also where the sink has run out of room: what follows would be lost.
class RenderProgress : public ProgressLine {
public:
    RenderProgress(bool quiet, double seconds, const LSoundSinkBase& writtenTo)
        : ProgressLine(quiet, seconds),
          sink(writtenTo) {}

    bool IsToStop() const { return ProgressLine::IsToStop() || (sink.status & SinkFellShort) != 0; }

private:
    const LSoundSinkBase& sink;
};

/// What the sink is opened with.
struct OutputFormat {
    int rate;
    std::uint8_t channels;
    int bits;
};

OutputFormat ChooseFormat(const RenderOptions& options, const LSoundSource& source) {
    return {.rate = options.rate.value_or(source->sampleRate),
            .channels = static_cast<std::uint8_t>(options.channels.value_or(source->channels)),
            .bits = options.bits};
}

/// Why the source can't become a file of this format; empty where it can.
std::string WhyNotConvertible(const LSoundSource& source, const OutputFormat& format) {
    const bool changed = format.rate != source->sampleRate || format.channels != source->channels;
    if (changed && source->channels > 2)
        return "has " + std::to_string(source->channels) + " channels; only mono and stereo can be converted";
    const double frames = static_cast<double>(source->GetEndSample()) * format.rate / source->sampleRate;
    const double bytes = frames * format.channels * (format.bits / 8);
    if (frames > 2147483647.0 || bytes > 4294967040.0)
        return "is too long for a WAVE file, which holds 4 GiB";
    return {};
}

/// A sum of two channels may be too loud, so it is always limited: to what the output's bits can hold.
LSoundSource MixDown(const LSoundSource& source, const OutputFormat& format) {
    LSoundSource mixed = source;
    LSPConvertSourceRateChannels(format.rate, format.channels, mixed);
    return LSoundSource::Make<LSRCPeakLimit>(mixed, format.bits == 8 ? FullScale8 : FullScale16);
}

struct RenderOutcome {
    LProcessResult result;
    std::string failure; ///< empty unless something went wrong
};

/// Renders into the file at `path`, which is complete when this returns.
RenderOutcome RenderTo(const std::string& path, const LSoundSource& source, const OutputFormat& format,
                       bool quiet) {
    const LSoundSink sink = LWaveFile::OpenSinkPCM(path.c_str(), format.rate, format.channels,
                                                   static_cast<std::uint16_t>(format.bits), 0);
    const bool mixDown = source->channels == 2 && format.channels == 1;
    LPRSourceToSink job("Saving Wave File", mixDown ? MixDown(source, format) : source, sink);
    RenderProgress progress(quiet, source.GetEnd().GetMilliseconds() / 1000.0, *sink);
    const LProcessResult result = Process(progress, job);
    progress.Finish(result == LProcessResult::Completed);
    if ((sink->status & SinkFellShort) != 0)
        return {LProcessResult::Failed,
                std::string("could not be written in full: ") + std::strerror(sink->writeError)};
    if (result == LProcessResult::Failed)
        return {result, "can't be written"};
    return {result, {}};
}

int Render(const RenderOptions& options) {
    const SoundInput input = OpenSoundInput(options.input, options.durationMs);
    if (!input.refusal.empty())
        return Refuse(options.input, input.refusal);
    const OutputFormat format = ChooseFormat(options, input.source);
    if (const std::string reason = WhyNotConvertible(input.source, format); !reason.empty())
        return Refuse(options.input, reason);
    if (IsSameFile(options.input.c_str(), options.output.c_str()))
        return Refuse(options.output, "is the input itself");
    if (!input.warning.empty())
        Warn(options.input, input.warning);

    LReplacedFile file(options.output);
    if (!file.GetError().empty())
        return Refuse(options.output, "can't be created: " + file.GetError());
    const RenderOutcome outcome = RenderTo(file.GetPathToWrite(), input.source, format, options.quiet);
    if (!outcome.failure.empty())
        return Refuse(options.output, outcome.failure);
    if (!file.Commit())
        return Refuse(options.output, "can't be put in place: " + file.GetError());
    return static_cast<int>(outcome.result);
}

} // namespace

void AddRenderCommand(CLI::App& program, int& status) {
    const auto options = std::make_shared<RenderOptions>();
    CLI::App* command = program.add_subcommand("render", "Write a tone or a WAVE file into a WAVE file");
    command->add_option("INPUT", options->input, "A tone (.tdf) or a WAVE file (.wav)")->required();
    command->add_option("OUTPUT", options->output, "The WAVE file to write")->required();
    command->add_option("--rate", options->rate, "Sample rate in Hz; without it, the input's own")
        ->check(CLI::Range(1, MaxRate))
        ->type_name("HZ");
    command
        ->add_option("--channels", options->channels, "1 (mono) or 2 (stereo); without it, the input's own")
        ->check(CLI::IsMember({1, 2}))
        ->type_name("N");
    command->add_option("--bits", options->bits, "Bits per sample: 8 or 16")
        ->check(CLI::IsMember({8, 16}))
        ->type_name("N")
        ->capture_default_str();
    command->add_option("--duration", options->durationMs, "Render the tone for that long, in milliseconds")
        ->check(CLI::Range(1u, MaxToneDurationMs))
        ->type_name("MS");
    command->add_flag("--quiet", options->quiet, "Show no progress");
    command->callback([options, &status] { status = Render(*options); });
}
