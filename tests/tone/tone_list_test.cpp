#include "support/array_source.h"
#include "support/temp_dir.h"
#include "sys/file.h"
#include "tone/tone_engine.h"
#include "tone/tone_list_report.h"
#include "tone/tone_list_source.h"

#include "sound/files/wave_file.h"

#include <gmock/gmock.h>

#include <functional>
#include <optional>
#include <sys/resource.h>

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class ToneList : public ::testing::Test {
protected:
    std::string Path(const std::string& name) { return dir / name; }

    std::string Tone(const std::string& name, std::optional<std::uint32_t> ms, double hz = 1000,
                     int repeat = 0, const std::string& list = {}) {
        SonvireData tone;
        tone.startLeftHz[0] = hz;
        if (ms)
            tone.SetDuration(*ms);
        tone.repeat = static_cast<std::uint8_t>(repeat);
        tone.waveform = list.empty() ? ToneSine : ToneFromList;
        list.copy(tone.listPath, sizeof tone.listPath - 1);
        EXPECT_FALSE(tone.WriteToFile(Path(name).c_str()));
        return Path(name);
    }

    std::string Wave(const std::string& name, int frames, int value, int rate = 44100) {
        const std::vector<int> samples(static_cast<std::size_t>(frames), value);
        LWaveFile::OpenSinkPCM(Path(name).c_str(), rate, 1, 16, 0)->Write(samples.data(), frames);
        return Path(name);
    }

    /// The entries as a file's lines, in playing order.
    std::string List(const std::string& name, const std::vector<std::string>& entries) {
        EXPECT_FALSE(WriteToneListFile(Path(name).c_str(), entries));
        return Path(name);
    }

    const TempDir dir;

    /// Opens a list; `told` is what its player is told.
    LSoundSource Open(const std::string& list) {
        ToneListReport report;
        LSoundSource source = OpenToneList(list, &report);
        told.clear();
        for (const LNotice& notice : report.notices)
            told.push_back(notice.title + ": " + notice.text);
        return source;
    }
    std::vector<std::string> told;
};

/// "250" for a silence, "[path]" for a file.
std::vector<std::string> DescribeFile(const std::string& path) {
    LList<ToneItem> list;
    GetToneListFromFile(list, path.c_str());
    std::vector<std::string> items;
    for (const ToneItem& item : list)
        items.push_back(item.IsSilence() ? std::to_string(item.GetLength().GetMilliseconds())
                                         : "[" + std::string(item.GetPath()) + "]");
    return items;
}

/// "depth name ms problem" for every entry.
std::vector<std::string> DescribeReport(const std::string& path) {
    std::vector<std::string> lines;
    for (const ToneListEntry& entry : ExamineToneList(path).entries)
        lines.push_back(std::to_string(entry.depth) + " " + entry.file.substr(entry.file.rfind('/') + 1) +
                        " " + std::to_string(entry.length.GetMilliseconds()) + " " + entry.problem);
    return lines;
}

TEST_F(ToneList, ItsLastLinePlaysFirst) {
    const std::string longLine(300, 'x');
    const std::tuple<const char*, std::string, std::vector<std::string>> cases[] = {
        {"CR LF and LF CR are single line ends", "a\r\nb\n\rc\rd", {"[d]", "[c]", "[b]", "[a]"}},
        {"an empty line between is an empty silence", "a\n\nb\r\rc", {"[c]", "0", "[b]", "0", "[a]"}},
        {"LF LF at the end is one more", "a\n\n", {"0", "[a]"}},
        {"CR LF at the end is not", "a\r\n", {"[a]"}},
        {"no line end at the end", "a\n7ms silence.", {"7", "[a]"}},
        {"a blank before the unit", "250 ms silence.", {"250"}},
        {"the point ends the number", "1.5ms silence.", {"1"}},
        {"no number", "ms silence.", {"0"}},
        {"a sign", "-5ms silence.", {"-5"}},
        {"beyond the range", "99999999999ms silence.", {"2147483647"}},
        {"the unit must end the line", "ms silence. x", {"[ms silence. x]"}},
        {"with its full stop", "250ms silence", {"[250ms silence]"}},
        {"the first unit counts", "1ms silence.2ms silence.", {"1"}},
        {"a long line", longLine, {"[" + longLine.substr(0, 259) + "]"}},
        {"a zero byte ends a line's text", std::string("a.tdf\0x\nb", 9), {"[b]", "[a.tdf]"}},
    };
    for (const auto& [name, bytes, items] : cases) {
        WriteBytes(Path("list.tdl"), bytes);
        EXPECT_EQ(DescribeFile(Path("list.tdl")), items) << name;
    }
    EXPECT_TRUE(DescribeFile(Path("missing.tdl")).empty());
    EXPECT_TRUE(DescribeFile(Path("")).empty()) << "a folder";
    EXPECT_TRUE(DescribeFile("/dev/zero").empty()) << "and is not read for ever";
    const std::string list = List("list.tdl", {"A.tdf", "500ms silence.", "B.tdf"});
    EXPECT_EQ(ReadBytes(list), "B.tdf\n500ms silence.\nA.tdf\n");
    const LExclusiveLock lock(list.c_str(), 0);
    EXPECT_TRUE(DescribeFile(list).empty()) << "in another program's hands";
}

TEST_F(ToneList, PlaysTonesSilencesWaveFilesAndListsInOrder) {
    const std::string inner = List("inner.tdl", {Wave("two.wav", 2, 32), "1ms silence."});
    const std::string outer = List("outer.tdl", {Wave("one.wav", 3, 16), inner, Tone("tone.tdf", 1, 11025)});
    const LSoundSource source = Open(outer);
    EXPECT_EQ(source->GetEndSample(), 3 + 2 + 44 + 44);
    const std::vector<int> out = ReadFrames(*source, 95);
    std::vector<int> start = {16, 16, 16, 32, 32};
    start.resize(49, 0);
    start.insert(start.end(), {131070, 0, -131070, 0});
    EXPECT_EQ(std::vector<int>(out.begin(), out.begin() + 53), start);
    EXPECT_TRUE(told.empty());

    SonvireData tone;
    EXPECT_FALSE(tone.ReadFromFile(Tone("list.tdf", {}, 0, 0, outer).c_str()));
    EXPECT_EQ(ReadFrames(*OpenToneEngine(tone), 95), out);
    tone.SetDuration(1); // the region that loops: 44 frames
    tone.repeat = 1;
    EXPECT_EQ(OpenToneEngine(tone)->GetEndSample(), 44 + 8 * 44100);
}

TEST_F(ToneList, ANameStandsForAFileBesideItsListOrInTheWorkingFolder) {
    for (const char* folder : {"a", "b", "b/c", "c"})
        std::filesystem::create_directory(Path(folder));
    Wave("a/x.wav", 2, 16);
    Wave("b/x.wav", 3, 32);
    const std::string a = List("a/list.tdl", {"x.wav"}), b = List("b/list.tdl", {"x.wav"});
    EXPECT_EQ(ReadFrames(*Open(List("both.tdl", {a, b})), 5), (std::vector<int>{16, 16, 32, 32, 32}));

    // Neither stands beside its list, where both would be the same.
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(Path(""));
    Wave("x.wav", 1, 48);
    Wave("c/x.wav", 2, 64);
    const std::string inner = List("b/c/inner.tdl", {"x.wav"});
    EXPECT_EQ(ReadFrames(*Open(List("b/outer.tdl", {inner, "c/x.wav"})), 3), (std::vector<int>{48, 64, 64}));
    std::filesystem::current_path(before);
}

TEST_F(ToneList, WhatCanNotBeUsedIsSkippedOrPlaysAsTheDefault) {
    std::filesystem::create_directory(Path("a.b"));
    const std::string list =
        List("a.b/list.tdl", {Path("missing.wav"), Path("tone.TDF"), "plain", Tone("ok.tdf", 10)});
    WriteBytes(Path("a.b/plain"), "");
    EXPECT_EQ(Open(list)->GetEndSample(), 441);
    const std::string text = "Unrecognized file type: File type of extension \"";
    const std::string end = "\" is not recognized as a tone file.";
    EXPECT_THAT(told, ElementsAre(text + ".TDF" + end, text + end)) << "as the entry is written";
    WriteBytes(Path("short.tdf"), "x");
    EXPECT_EQ(Open(List("list.tdl", {Path("short.tdf"), Tone("ok.tdf", 10)}))->GetEndSample(), 2646000 + 441);
}

TEST_F(ToneList, AListThatIncludesItselfIsLeftOutThereWithOneMessage) {
    const std::string tone = Tone("tone.tdf", 10), self = Path("self.tdl");
    const std::string looped = Tone("looped.tdf", 1000, 0, 1, self);
    const std::vector<std::string> cases[] = {{tone, self}, {self, tone}, {self, tone, looped, looped}};
    for (const auto& entries : cases) {
        const LSoundSource source = Open(List("self.tdl", entries));
        EXPECT_EQ(source->GetEndSample(), 441);
        source->Seek(0);
        ReadFrames(*source, 1000);
        EXPECT_THAT(told, ElementsAre(HasSubstr("self.tdl\" includes itself")));
    }
    EXPECT_THAT(DescribeReport(self),
                ElementsAre("0 self.tdl 0 includes itself; it is left out there", "0 tone.tdf 10 ",
                            "0 looped.tdf 0 includes itself; it is left out there",
                            "0 looped.tdf 0 includes itself; it is left out there"));
}

TEST_F(ToneList, WhatIsTooMuchIsLeftOutAndToldOnce) {
    List("d32.tdl", {"1ms silence."});
    for (int i = 31; i >= 0; --i)
        List("d" + std::to_string(i) + ".tdl", {"1ms silence.", "d" + std::to_string(i + 1) + ".tdl"});
    EXPECT_EQ(Open(Path("d0.tdl"))->GetEndSample(), 32 * 8) << "32 lists deep";
    List("half.tdl", std::vector<std::string>(50'000, "1ms silence."));
    const std::string flat = List("flat.tdl", std::vector<std::string>(100'001, "1ms silence."));
    const std::string nested = List("nested.tdl", {"half.tdl", "half.tdl", "half.tdl"});
    for (const std::string& list : {flat, nested}) {
        const LSoundSource source = Open(list);
        EXPECT_THAT(told, ElementsAre(HasSubstr(list + "\" has more than 100000 entries")));
        EXPECT_THAT(DescribeReport(list).back(), HasSubstr("has more than 100000 entries"));
        EXPECT_EQ(source->GetEndSample(), list == flat ? 800'000 : 99'998 * 8);
    }
}

TEST_F(ToneList, AWaveFileOfUnknownLengthPlaysWholeWhereverItStands) {
    const std::string a = Wave("a.wav", 2, 16), s = Wave("s.wav", 3, 32), b = Wave("b.wav", 1, 48);
    WriteBytes(s, ReadBytes(s).replace(42, 4, "\xFF\xFF\xFF\xFF"));
    const std::string inner = List("as.tdl", {a, s});
    const std::pair<std::vector<std::string>, std::vector<int>> cases[] = {
        {{a, s}, {16, 16, 32, 32, 32}},
        {{a, s, b}, {16, 16, 32, 32, 32, 48}},
        {{inner, b}, {16, 16, 32, 32, 32, 48}},
        {{s, s}, {32, 32, 32, 32, 32, 32}}};
    for (const auto& [entries, samples] : cases) {
        const LSoundSource source = Open(List("list.tdl", entries));
        EXPECT_EQ(ReadFrames(*source, source->GetEndSample()), samples);
    }
}

TEST_F(ToneList, ThousandsOfFilesNeedFewHandles) {
    rlimit old{};
    getrlimit(RLIMIT_NOFILE, &old);
    const rlimit few{40, old.rlim_max};
    setrlimit(RLIMIT_NOFILE, &few);
    std::vector<std::string> entries;
    for (int i = 0; i < 300; ++i)
        entries.push_back(Wave("w" + std::to_string(i) + ".wav", 10, 16 * (i + 1)));
    const std::string tone = Tone("many.tdf", {}, 0, 0, List("many.tdl", entries));
    const LSoundSource source = Open(List("outer.tdl", {tone}));
    ASSERT_EQ(source->GetEndSample(), 3000);
    for (int round = 0; round < 2; ++round) {
        const std::vector<int> out = ReadFrames(*source, 3000);
        for (std::size_t i = 0; i < out.size(); ++i)
            ASSERT_EQ(out[i], 16 * (static_cast<int>(i / 10) + 1)) << i;
        source->Seek(0);
    }
    setrlimit(RLIMIT_NOFILE, &old);
}

TEST_F(ToneList, AFileThatIsReplacedBeforeItsTurnPlaysIfItCan) {
    const auto setGone = [&] { std::filesystem::remove(Path("b.wav")); };
    const auto replace = [&](int frames, int rate) {
        std::filesystem::rename(Wave("new.wav", frames, 48, rate), Path("b.wav"));
    };
    const std::string silence = Path("b.wav") + " ";
    const std::tuple<std::function<void()>, std::vector<int>, std::string> cases[] = {
        {[&] { replace(2, 44100); }, {16, 16, 48, 48, 16}, ""},
        {[&] { replace(1, 44100); }, {16, 16, 48, 16, 0}, ""},     // the file's own length
        {[&] { Wave("b.wav", 2, 64); }, {16, 16, 64, 64, 16}, ""}, // written over
        {[&] { replace(2, 22050); },
         {16, 16, 0, 0, 16},
         silence + "has been replaced by a file of another format"},
        {setGone, {16, 16, 0, 0, 16}, silence + "can't be opened"},
    };
    for (const auto& [change, played, told] : cases) {
        const std::string a = Wave("a.wav", 2, 16), c = Wave("c.wav", 1, 16);
        ToneListReport report;
        const LSoundSource source = OpenToneList(List("list.tdl", {a, Wave("b.wav", 2, 32), c}), &report);
        change();
        for (const int pass : {1, 2}) {
            EXPECT_EQ(ReadFrames(*source, 5), played) << told;
            const std::vector<LFileWarning> news = report.news->Take();
            EXPECT_EQ(news.empty() ? "" : news[0].file + " " + news[0].reason, pass == 1 ? told : "");
            source->Seek(0);
        }
    }
}

TEST_F(ToneList, AnEntryOfMoreThanTwoChannelsIsLeftOut) {
    const std::vector<int> six(6 * 9, 99);
    LWaveFile::OpenSinkPCM(Path("six.wav").c_str(), 96000, 6, 16, 0)->Write(six.data(), 9);
    const std::string list = List("list.tdl", {Wave("a.wav", 2, 16), Path("six.wav"), Wave("b.wav", 1, 32)});
    const LSoundSource source = Open(list);
    EXPECT_EQ(source->sampleRate, 44100) << "nor does its rate count";
    EXPECT_EQ(source->channels, 1);
    EXPECT_EQ(source->GetEndSample(), 3);
    EXPECT_EQ(ReadFrames(*source, 3), (std::vector<int>{16, 16, 32}));
    EXPECT_EQ(DescribeReport(list)[1],
              "0 six.wav 0 has 6 channels and is left out: lists play mono and stereo");
}

TEST_F(ToneList, TheReportNamesEveryEntryAndWhatIsWrongWithIt) {
    const std::string inner = List("inner.tdl", {Tone("deep.tdf", 20), Path("gone.wav")});
    const std::string list =
        List("list.tdl", {inner, "5ms silence.", Tone("endless.tdf", {}), Tone("looped.tdf", 500, 1000, 1),
                          Tone("none.tdf", 0), Tone("wraps.tdf", 50'000'000), Path("odd.xyz")});
    EXPECT_THAT(DescribeReport(list),
                ElementsAre("0 inner.tdl 20 ", "1 deep.tdf 20 ",
                            "1 gone.wav 0 can't be read: No such file or directory", "0  5 ",
                            "0 endless.tdf 60000 is endless; nothing behind it plays",
                            "0 looped.tdf 8500 is endless; nothing behind it plays",
                            "0 none.tdf 60000 is endless; nothing behind it plays",
                            "0 wraps.tdf 0 lasts longer than the 13 and a half hours that a tone can be "
                            "counted for; it is left out",
                            "0 odd.xyz 0 is of an unknown type and left out"));
}

} // namespace
