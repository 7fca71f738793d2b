#include "cli/certificate_check.h"

#include "cli/refusal.h"
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
    return text;
}

bool IsChannel(const Json& channel) {
    return channel.is_object() && channel.value("name", Json()).is_string() &&
           channel.value("tones", Json()).is_array();
}

bool IsBits(const Json& bits) {
    return bits == 0 || bits == 8 || bits == 16 || bits == 24 || bits == 32;
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

CertificateCheck::CertificateCheck(const std::string& certificate) : path(certificate), failure(Read()) {
    if (!failure)
        failure = SampleHash::Check();
}

LFailure CertificateCheck::Read() {
    LFailure unread;
    const std::string text = ReadText(path, unread);
    if (unread)
        return unread;
    const Json content = Json::parse(text, nullptr, false);
    if (!content.is_object() || content.value("type", Json()) != "certificate")
        return "is no certificate, or a damaged one";
    if (content.value("version", Json()) != DescribeType("certificate")["version"])
        return "is a certificate of another version";
    figures = content.value("figures", Json());
    if (!content.value("sha256", Json()).is_string() || !IsMeasurement(figures))
        return "is a damaged certificate";
    sha256 = content["sha256"];
    return {};
}

std::unique_ptr<FrameReader> CertificateCheck::Watch(std::unique_ptr<FrameReader> sound) {
    auto watching = std::make_unique<HashedReader>(std::move(sound), figures["bits"].get<int>(), true);
    reader = watching.get();
    return watching;
}

std::vector<FigureChange> CertificateCheck::Finish(const Json& measured) {
    std::vector<FigureChange> changes = CompareFormats(measured);
    for (FigureChange& each : CompareSamples(measured))
        changes.push_back(std::move(each));
    return changes;
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

std::vector<FigureChange> CertificateCheck::CompareSamples(const Json& measured) const {
    if (const std::optional<HashedReader::Change> change = reader->FindChange(sha256))
        return NameChange(*change);
    if (figures["channels"].size() != measured["channels"].size())
        return {};
    std::vector<FigureChange> changes = FindFigureChanges(figures, measured);
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
