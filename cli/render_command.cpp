#include "cli/render_command.h"

#include "cli/interrupt.h"
#include "cli/progress_line.h"
#include "cli/refusal.h"
#include "cli/text.h"
#include "cli/tone_options.h"
#include "jobs/sound_input.h"
#include "jobs/wave_output.h"
#include "sound/files/wave_file.h"
#include "sound/render_job.h"
#include "sys/file.h"
#include "sys/path.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <algorithm>
#include <memory>
#include <optional>

namespace {

/// The largest sample that doesn't wrap around in 8 bits.
constexpr int FullScale8 = 127 * 4096 + 2047;

struct RenderOptions {
    std::vector<std::string>
        files; ///< INPUT and OUTPUT, or OUTPUT alone where the tone options stand for the input
    ToneOptions tone;
    std::optional<int> rate;
    std::optional<int> channels;
    int bits = 16;
    bool quiet = false;
    bool strict = false;
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
    return LWaveFile::WhyTooLong(frames, format.channels, format.bits);
}

/// A sum of two channels may be too loud, so it is always limited: to what the output's bits can hold.
LSoundSource MixDown(const LSoundSource& source, const OutputFormat& format) {
    LSoundSource mixed = source;
    LSPConvertSourceRateChannels(format.rate, format.channels, mixed);
    return LSoundSource::Make<LSRCPeakLimit>(mixed, format.bits == 8 ? FullScale8 : FullScale16);
}

/// The source as the sink takes it; only what was mixed down is not left to the job.
LSoundSource Prepare(const LSoundSource& source, const OutputFormat& format) {
    return source->channels == 2 && format.channels == 1 ? MixDown(source, format) : source;
}

int CountFrames(const LSoundSource& source, const OutputFormat& format) {
    const LSoundSource converted = OpenSourceForSink(source, format.rate, format.channels);
    return std::max(0, WrapSubtract(converted->GetEndSample(), converted->GetPositionSample()));
}

/// Renders into the output, of which nothing is held any more when this returns.
LProcessResult RunJob(const LSoundSource& source, const WaveOutput& output, bool quiet) {
    CatchInterrupts();
    LPRSourceToSink job("Saving Wave File", source, output.GetSink());
    RenderProgress progress(quiet, source.GetEnd().GetMilliseconds() / 1000.0, *output.GetSink());
    const LProcessResult result = Process(progress, job);
    progress.Finish(result == LProcessResult::Completed);
    return result;
}

/// True where `file` is what the output leads to.
bool IsWritten(const std::string& output, const std::string& file) {
    return IsSameFile(file, output == "-" ? "/dev/stdout" : output);
}

/// Why this output must not be written for this input; empty where it may.
std::string WhyNotWritable(const std::string& output, const SoundInput& input) {
    if (HasExtension(output, ".tdf") || HasExtension(output, ".tdl"))
        return "is no name for a WAVE file";
    for (const std::string& file : input.files)
        if (IsWritten(output, file))
            return "is read by the input";
    return {};
}

int RenderInput(const RenderOptions& options, const std::string& inputName, const SoundInput& input) {
    const std::string& outputPath = options.files.back();
    if (!input.refusal.empty())
        return Refuse(inputName, input.refusal);
    const OutputFormat format = ChooseFormat(options, input.source);
    if (const std::string reason = WhyNotConvertible(input.source, format); !reason.empty())
        return Refuse(inputName, reason);
    if (const std::string reason = WhyNotWritable(outputPath, input); !reason.empty())
        return Refuse(outputPath, reason);
    for (const InputWarning& warning : input.warnings) {
        if (options.strict)
            return Refuse(warning.file, warning.reason);
        Warn(warning.file, warning.reason);
    }

    const LSoundSource source = Prepare(input.source, format);
    const int frames = CountFrames(source, format);
    if (frames == 0 && input.source->GetEndSample() > input.source->GetPositionSample())
        return Refuse(inputName, "is too long to be converted");
    WaveOutput output(outputPath, format, frames);
    if (!output.GetError().empty())
        return Refuse(output.GetName(), output.GetError());
    const LProcessResult result = RunJob(source, output, options.quiet);
    if (!output.Finish())
        return Refuse(output.GetName(), output.GetError());
    return static_cast<int>(result);
}

int RenderFile(const RenderOptions& options) {
    const std::string& path = options.files.front();
    if (IsWritten(options.files.back(), path))
        return Refuse(options.files.back(), "is the input itself");
    return RenderInput(options, path, OpenSoundInput(path, options.tone.durationMs, SoundLength::Finite));
}

int RenderTone(const RenderOptions& options) {
    const DescribedTone described = MakeTone(options.tone);
    if (!described.problem.empty())
        return Misuse(described.problem);
    return RenderInput(options, "the tone", OpenToneInput(described.tone, SoundLength::Finite));
}

int Render(const RenderOptions& options) {
    if (!options.tone.DescribeTone())
        return options.files.size() == 2 ? RenderFile(options) : Misuse("INPUT and OUTPUT are required");
    return options.files.size() == 1
               ? RenderTone(options)
               : Misuse("the tone options stand in place of INPUT: OUTPUT alone is required");
}

} // namespace

void AddRenderCommand(CLI::App& program, int& status) {
    const auto options = std::make_shared<RenderOptions>();
    CLI::App* command =
        program.add_subcommand("render", "Write a tone, a tone list or a WAVE file into a WAVE file");
    command
        ->add_option(
            "FILES", options->files,
            "INPUT, a tone (.tdf), a tone list (.tdl) or a WAVE file (.wav), which the tone options stand "
            "for where it is left out; then OUTPUT, the WAVE file to write, or - for standard output")
        ->required()
        ->expected(1, 2)
        ->type_name("[INPUT] OUTPUT");
    command->add_option("--rate", options->rate, "Sample rate; without it, the input's own")
        ->check(DecimalIn(1, LWaveFile::MaxRate))
        ->type_name("HZ");
    command
        ->add_option("--channels", options->channels, "1 (mono) or 2 (stereo); without it, the input's own")
        ->check(CLI::IsMember({1, 2}))
        ->type_name("N");
    command->add_option("--bits", options->bits, "Bits per sample: 8 or 16")
        ->check(CLI::IsMember({8, 16}))
        ->type_name("N")
        ->capture_default_str();
    command->add_flag("--strict", options->strict, "Fail where an entry of a list can't be used");
    command->add_flag("--quiet", options->quiet, "Show no progress");
    AddToneOptions(*command, options->tone);
    command->callback([options, &status] { status = Render(*options); });
}
