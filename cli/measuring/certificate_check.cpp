#include "cli/measuring/certificate_check.h"

#include "cli/certificate.h"
#include "cli/refusal.h"
#include "jobs/shown_reader.h"
#include "sys/file.h"
#include "sys/path.h"

#include <algorithm>

namespace {

constexpr std::int64_t MostBytes = 16 << 20; ///< those of thousands of channels

struct FormatField {
    const char* name;
    const char* what;
    const char* unit;
};
constexpr FormatField FormatFields[] = {
    {"rateHz", "rate", " Hz"}, {"bits", "samples", " bits"}, {"frames", "length", " frames"}};

std::string ReadText(const std::string& path, LFailure& failure) {
    if (failure = CheckReadable(path); failure)
        return {};
    LSharedReadFile file(path.c_str());
    failure = file.GetFailure();
    std::string text(static_cast<std::size_t>(std::min(file.GetSize(), MostBytes)), '\0');
    text.resize(file.Read(text.data(), text.size()));
    if (!failure)
        failure = file.GetReadFailure();
    return text;
}

/// Null where it is nested deeper than any certificate: what copies it would not come to an end.
Json Parse(const std::string& text) {
    constexpr int Deepest = 16;
    bool isTooDeep = false;
    const auto look = [&](int depth, Json::parse_event_t /*event*/, const Json& /*parsed*/) {
        isTooDeep |= depth > Deepest;
        return depth <= Deepest;
    };
    Json parsed = Json::parse(text, look, false);
    return isTooDeep ? Json() : parsed;
}

bool IsChannel(const Json& channel) {
    constexpr const char* Always[] = {"peakDbfs", "rmsDbfs", "dcPercent", "clippedSamples", "wrappedSamples"};
    return channel.is_object() && channel.value("name", Json()).is_string() &&
           channel.value("tones", Json()).is_array() &&
           std::all_of(std::begin(Always), std::end(Always),
                       [&](const char* field) { return channel.contains(field); });
}

bool IsBits(const Json& bits) {
    constexpr int All[] = {0, 8, 16, 24, 32};
    return std::any_of(std::begin(All), std::end(All), [&](int each) { return bits == each; });
}

bool IsMeasurement(const Json& figures) {
    if (!figures.is_object())
        return false;
    const Json channels = figures.value("channels", Json());
    return channels.is_array() && !channels.empty() &&
           std::all_of(channels.begin(), channels.end(), IsChannel) &&
           figures.value("whole", Json()).is_object() && IsBits(figures.value("bits", Json())) &&
           std::all_of(std::begin(FormatFields), std::end(FormatFields), [&](const FormatField& field) {
               return figures.value(field.name, Json()).is_number_integer();
           });
}

/// Whether a certificate tells the same of the file in both places.
bool IsFileOf(const Json& file, const Json& figures) {
    return file.is_object() && file.value("channels", Json()) == figures["channels"].size() &&
           std::all_of(std::begin(FormatFields), std::end(FormatFields), [&](const FormatField& field) {
               return file.value(field.name, Json()) == figures[field.name];
           });
}

std::string TellBits(std::int64_t bits) {
    return bits == 0 ? "floating point" : std::to_string(bits) + " bits";
}

std::string TellField(const FormatField& field, std::int64_t value) {
    return field.what == std::string("samples") ? TellBits(value) : std::to_string(value) + field.unit;
}

std::vector<FigureChange> NameChange(HashedReader::Change change) {
    using enum HashedReader::Change;
    switch (change) {
    case None:
        return {};
    case Swapped:
        return {{"channels", "swapped"}};
    case Inverted:
        return {{"polarity", "inverted"}};
    case FirstInverted:
        return {{"polarity", "left inverted"}};
    case SecondInverted:
        return {{"polarity", "right inverted"}};
    }
    return {};
}

} // namespace

CertificateCheck::CertificateCheck(const std::string& path) : failure(Read(path)) {
    if (!failure)
        failure = SampleHash::Check();
}

LFailure CertificateCheck::Read(const std::string& path) {
    LFailure unread;
    const std::string text = ReadText(path, unread);
    if (unread)
        return unread;
    const Json content = Parse(text);
    if (!content.is_object() || content.value("type", Json()) != "certificate")
        return "is no certificate, or a damaged one";
    if (content.value("version", Json()) != DescribeType("certificate")["version"])
        return "is a certificate of another version";
    figures = content.value("figures", Json());
    if (!content.value("sha256", Json()).is_string() || !IsMeasurement(figures) ||
        !IsFileOf(content.value("file", Json()), figures))
        return "is a damaged certificate";
    const auto read = ReadMarks(content.value("marks", Json()));
    if (!read)
        return "is a damaged certificate";
    marks = *read;
    sha256 = content["sha256"];
    isOfThisMeter = content.value("meter", Json()) == MeterNumber;
    return {};
}

std::unique_ptr<FrameReader> CertificateCheck::Watch(std::unique_ptr<FrameReader> sound) {
    finder.emplace(sound->format.channels, marks);
    auto shown = std::make_unique<ShownReader>(
        std::move(sound), [this](std::span<const double> samples) { finder->Add(samples); });
    auto watching = std::make_unique<HashedReader>(std::move(shown), figures["bits"].get<int>(), true);
    reader = watching.get();
    return watching;
}

std::vector<FigureChange> CertificateCheck::Finish(const Json& measured) {
    std::vector<FigureChange> changes = CompareFormats(measured);
    const std::optional<HashedReader::Change> known = reader->FindChange(sha256);
    if (known == HashedReader::Change::None) {
        if (changes.empty())
            NoteFigures(measured);
        return changes;
    }
    const bool isComparable = figures["channels"].size() == measured["channels"].size();
    for (FigureChange& each : known          ? NameChange(*known)
                              : isComparable ? CompareSamples(measured)
                                             : std::vector<FigureChange>())
        changes.push_back(std::move(each));
    return changes;
}

void CertificateCheck::NoteFigures(const Json& measured) {
    if (!isOfThisMeter)
        return;
    const std::vector<FigureChange> changes = FindFigureChanges(figures, measured);
    if (!changes.empty())
        note = "tells other figures than these samples have; " + changes.front().what + ": " +
               changes.front().text;
}

std::vector<FigureChange> CertificateCheck::CompareFormats(const Json& measured) const {
    std::vector<FigureChange> changes;
    for (const FormatField& field : FormatFields) {
        const std::int64_t was = figures[field.name], is = measured[field.name];
        if (was != is)
            changes.push_back({field.what, TellField(field, is) + " instead of " + TellField(field, was)});
    }
    const std::size_t was = figures["channels"].size(), is = measured["channels"].size();
    if (was != is)
        changes.push_back({"channels", std::to_string(is) + " instead of " + std::to_string(was)});
    return changes;
}

/// What moved marks tell stands for what follows from it.
std::vector<FigureChange> CertificateCheck::CompareSamples(const Json& measured) {
    const std::int64_t was = figures["frames"], is = measured["frames"];
    std::vector<FigureChange> changes = NameMoves(marks, finder->Finish(), is - was);
    const bool hasMoved = !changes.empty();
    for (FigureChange& each : FindFigureChanges(figures, measured))
        if (!hasMoved || (each.what != "jumps" && each.what != "frequency" && each.what != "DC"))
            changes.push_back(std::move(each));
    if (changes.empty())
        changes.push_back({"samples", "not the same ones, although all figures agree"});
    return changes;
}

std::string TellChanges(const std::string& sound, const std::string& certificate,
                        const std::vector<FigureChange>& changes) {
    std::string text = Printable(sound) + (changes.empty() ? " is what " : " is not what ") +
                       Printable(certificate) + " says" + (changes.empty() ? "" : ":") + "\n";
    for (const FigureChange& each : changes)
        text += "  " + each.what + ": " + each.text + "\n";
    return text;
}

Json DescribeChanges(const std::string& certificate, const std::vector<FigureChange>& changes) {
    Json array = Json::array();
    for (const FigureChange& each : changes)
        array.push_back({{"what", each.what}, {"text", each.text}});
    return {{"certificate", certificate}, {"isSame", changes.empty()}, {"changes", std::move(array)}};
}
