#include "cli/certificate.h"

#include "cli/file_report.h"
#include "cli/measuring/certificate_marks.h"
#include "cli/measuring/measure_report.h"
#include "cli/progress_line.h"
#include "cli/refusal.h"
#include "jobs/hashed_reader.h"
#include "jobs/hires_files.h"
#include "jobs/measure_job.h"
#include "jobs/render_hires.h"
#include "jobs/shown_reader.h"
#include "sys/path.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <filesystem>

namespace {

bool IsRaw(const RenderOptions& options) {
    const HiresFileKind* kind = FindOutputKind(options.output.path);
    return options.isRaw || (kind && kind->container == HiresFileKind::Container::Raw);
}

/// Of files that need not be there yet.
bool IsSamePath(const std::string& path, const std::string& other) {
    namespace fs = std::filesystem;
    std::error_code ignored;
    return IsSameFile(path, other) || fs::weakly_canonical(fs::absolute(path, ignored), ignored) ==
                                          fs::weakly_canonical(fs::absolute(other, ignored), ignored);
}

LFailure CheckName(const RenderOptions& options, const std::set<std::string>& read) {
    const std::string& path = *options.certificate;
    if (path.empty() || OutputFile::IsNoFile(path))
        return "is no name for a file";
    if (IsOneOfFiles(path, read))
        return "is read by the input";
    if (IsSamePath(path, options.output.path))
        return "is the sound file";
    const OutputOption output{.path = path, .noClobber = options.output.noClobber};
    return output.CheckFree();
}

/// Below the folder of what names it, or without a folder: a certificate is the same wherever it is made.
std::string MakeRelative(const std::string& path, const std::string& folder) {
    const std::string prefix = folder.empty() ? "" : folder + "/";
    return path.starts_with(prefix) && !path.substr(prefix.size()).starts_with("/")
               ? path.substr(prefix.size())
               : GetFileName(path);
}

/// As `show` has it.
Json DescribeInput(const RenderOptions& options) {
    const HiresRequest high{.settings = options.high.MakeSettings(0, options.seed),
                            .rate = options.rate,
                            .length = SoundLength::Any};
    const HiresRequest* const request = options.high.IsHigh() ? &high : nullptr;
    const FileReport report = options.input.empty() ? ReportTone(MakeTone(options.tone).tone, request)
                                                    : ReportFile(options.input, request);
    Json shown = Json::parse(report.json, nullptr, false);
    const std::string folder = GetFolder(options.input);
    if (shown.contains("list"))
        shown["list"] = MakeRelative(shown["list"], folder);
    if (shown.contains("entries"))
        for (Json& entry : shown["entries"])
            entry["file"] = MakeRelative(entry["file"], folder);
    return shown;
}

/// Those that have shaped the samples, beside the format that they are in.
Json DescribeOptions(const RenderOptions& options) {
    const bool isHigh = options.high.IsHigh();
    Json object = {{"quality", isHigh ? "high" : "standard"}};
    if (!options.input.empty() && options.tone.durationMs)
        object["durationMs"] = *options.tone.durationMs;
    if (!isHigh && options.seed)
        object["seed"] = *options.seed;
    if (!isHigh)
        return object;
    const HiresSettings settings = options.high.MakeSettings(0, options.seed);
    object["seed"] = settings.seed;
    object["levelDbfs"] = settings.level;
    object["fit"] = settings.fit;
    object["fadeInMs"] = settings.fadeInMs;
    object["fadeOutMs"] = settings.fadeOutMs;
    if (options.bits == "16")
        object["dither"] = options.dither.empty() ? "tpdf" : options.dither;
    return object;
}

Json DescribeFile(const std::string& path, const HashedReader& reader) {
    return {{"name", GetFileName(path)},    {"format", ReadSoundFileFacts(path).kind},
            {"rateHz", reader.format.rate}, {"channels", reader.format.channels},
            {"bits", reader.format.bits},   {"frames", reader.length}};
}

/// That there is none, although there is the sound file.
int Fail(const RenderOptions& options, const std::string& reason) {
    return Refuse(*options.certificate, reason + "; " + GetFileName(options.output.path) + " is complete");
}

/// What is on the disk is what is certified.
int CertifyFile(const RenderOptions& options, HashedReader& reader, const FrameMarker& marker,
                const RenderedLevel& level) {
    const auto [rate, channels, bits] = reader.format;
    SoundMeter meter(rate, static_cast<std::size_t>(channels), bits);
    MeasureJob job{.reader = reader, .meter = meter};
    const double seconds = static_cast<double>(reader.length) / rate;
    if (RunJob(job, seconds, options.quiet) == LProcessResult::Stopped) {
        Fail(options, "is not written: stopped");
        return ExitStopped;
    }
    Json certificate = DescribeType("certificate");
    certificate["program"] = ProgramName;
    if (!options.input.empty())
        certificate["inputName"] = GetFileName(options.input);
    certificate["input"] = DescribeInput(options);
    certificate["options"] = DescribeOptions(options);
    certificate["file"] = DescribeFile(options.output.path, reader);
    certificate["sha256"] = reader.Finish();
    certificate["marks"] = DescribeMarks(marker.GetMarks());
    certificate["meter"] = MeterNumber;
    certificate["figures"] = DescribeMeasurement({.name = GetFileName(options.output.path),
                                                  .rate = rate,
                                                  .bits = bits,
                                                  .limiterDb = level.limitedDb,
                                                  .figures = meter.Finish()});
    const std::string text = WriteJson(certificate);
    const char* const path = options.certificate->c_str();
    const LFailure unwritten = LFile::SaveFile(path, text.data(), static_cast<unsigned int>(text.size()));
    return unwritten ? Fail(options, "can't be written: " + unwritten.GetReason()) : ExitCompleted;
}

} // namespace

void AddCertificateOption(CLI::App& command, RenderOptions& options) {
    command
        .add_option("--certificate", options.certificate,
                    "Also write what the file is: its input, its figures, and a sum of its samples, by which "
                    "measure --against knows it again")
        ->type_name("FILE");
}

LFailure CheckCertificate(const RenderOptions& options, const std::set<std::string>& read) {
    if (!options.certificate)
        return {};
    if (OutputFile::IsNoFile(options.output.path) || IsRaw(options))
        return "is for a sound file, which can be read back: not for standard output, pipes or raw samples";
    if (LFailure refused = CheckName(options, read))
        return refused;
    if (LFailure missing = SampleHash::Check())
        return missing;
    return OutputFile(*options.certificate).GetFailure();
}

int Certify(const RenderOptions& options, const RenderedLevel& level) {
    if (IsSameFile(*options.certificate, options.output.path)) // by a link that has led nowhere before
        return Fail(options, "is the sound file");
    std::error_code ignored;
    std::filesystem::remove(*options.certificate, ignored); // an old one is no more that of the file
    FrameInput written = ReadFileFrames(options.output.path);
    if (!written.reader)
        return Fail(options, "is not written: what was rendered " + written.failure.GetReason());
    const FrameReader::Format format = written.reader->format;
    FrameMarker marker(format.channels, written.reader->length);
    auto shown = std::make_unique<ShownReader>(std::move(written.reader),
                                               [&](std::span<const double> samples) { marker.Add(samples); });
    HashedReader reader(std::move(shown), format.bits, false);
    return CertifyFile(options, reader, marker, level);
}
