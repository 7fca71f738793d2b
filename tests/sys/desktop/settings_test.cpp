#include "sys/desktop/settings.h"

#include "support/full_disk.h"
#include "support/temp_dir.h"
#include "sys/file.h"

#include <gtest/gtest.h>

#include <QSettings>
#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace {

std::string StorePath() {
    return std::string(getenv("XDG_CONFIG_HOME")) + "/Quenby Software/Sonvire.conf";
}

std::string Read(const std::string& section, const std::string& key) {
    std::string value;
    const bool stored = LUserSettingGetString(section, key, "the default", value);
    return (stored ? "stored: " : "not stored: ") + value;
}

TEST(Settings, HaveTextNumberAndTruthForms) {
    const std::tuple<const char*, int, bool> cases[] = {{"abc", 0, true}, // 77 and true are the defaults
                                                        {"", 77, true},
                                                        {"0", 0, false},
                                                        {"00", 0, false},
                                                        {"false", 0, true},
                                                        {"1", 1, true},
                                                        {" -12x", -12, true},
                                                        {"99999999999", 2147483647, true},
                                                        {"a, b;c=%\"\\\n\xC3\xA4", 0, true}};
    for (const auto& [text, number, truth] : cases) {
        LUserSettingSetString("test", "form", text);
        EXPECT_EQ(Read("test", "form"), std::string("stored: ") + text);
        EXPECT_EQ(LUserSettingGet("test", "form", 77), number) << text;
        EXPECT_EQ(LUserSettingGet("test", "form", true), truth) << text;
    }
    LUserSettingSet("test", "form", -5);
    EXPECT_EQ(Read("test", "form"), "stored: -5");
    LUserSettingSet("test", "form", false);
    EXPECT_EQ(Read("test", "form"), "stored: 0");
    LUserSettingDeleteItem("test/", "form");
    EXPECT_EQ(Read("test", "form"), "not stored: the default");
    EXPECT_EQ(LUserSettingGet("test", "form", 77), 77);
}

TEST(Settings, SectionsDifferInCaseAndKeysInBlanksButNotInASlash) {
    LUserSettingSetString("settings", "x", "small");
    LUserSettingSetString("Settings", "x", "capital");
    LUserSettingSetString("tonelist/", "read folder", "with a blank");
    LUserSettingSetString("tonelist", "readfolder", "without");
    EXPECT_EQ(Read("settings/", "x"), "stored: small");
    EXPECT_EQ(Read("Settings", "x"), "stored: capital");
    EXPECT_EQ(Read("tonelist", "read folder"), "stored: with a blank");
    EXPECT_EQ(Read("tonelist/", "readfolder"), "stored: without");
}

TEST(Settings, TextsThatAreTooLongReadAsEmpty) {
    LUserSettingSetString("test", "long", std::string(259, 'x'));
    EXPECT_EQ(Read("test", "long"), "stored: " + std::string(259, 'x'));
    LUserSettingSetString("test", "long", std::string(260, 'x'));
    EXPECT_EQ(Read("test", "long"), "stored: ");
    EXPECT_EQ(LUserSettingGet("test", "long", 5), 5);
}

TEST(Settings, AFileOfNonsenseGivesDefaults) {
    LUserSettingSetString("test", "good", "1");
    WriteBytes(
        StorePath(),
        std::string("[[[\n==\n[test]\nlist=a, b\nbad=@Variant(\\0\\0\\0\\xff)\ngood=2\n\xFF\xFE\0[x", 60));
    EXPECT_EQ(Read("test", "list"), "stored: a, b");
    EXPECT_EQ(LUserSettingGet("test", "bad", 7), 7);
    EXPECT_EQ(LUserSettingGet("test", "good", 7), 2);
    LUserSettingSetString("test", "new", "3");
    EXPECT_EQ(LUserSettingGet("test", "good", 7), 2);
    EXPECT_EQ(LUserSettingGet("test", "new", 7), 3);
}

TEST(Settings, AreThoseOfQt) {
    WriteBytes(StorePath(), "");
    QSettings qt(QSettings::NativeFormat, QSettings::UserScope, "Quenby Software", "Sonvire");
    const std::string texts[] = {"",
                                 "plain",
                                 " blanks ",
                                 "a;b=c, d",
                                 "@x)",
                                 "@String(x)",
                                 "?'\"\\\a\r\n\t",
                                 "\1a\1g",
                                 std::string("\0001z", 3),
                                 "\xC3\xA4\xE2\x82\xAC\xF0\x9F\x8E\xB5"};
    for (const std::string& text : texts) {
        usleep(20000); // Qt takes a file of the same size and time for the same
        LUserSettingSetString("to Qt/", "a key.\xC3", text);
        qt.sync();
        EXPECT_EQ(qt.value(QString::fromLatin1("to Qt/a key.\xC3")).toString().toStdString(), text);
        qt.setValue("from Qt/a key", QString::fromStdString(text));
        qt.sync();
        EXPECT_EQ(Read("from Qt", "a key"), "stored: " + text);
    }
    WriteBytes(
        StorePath(),
        "\xEF\xBB\xBF\xEF\xBB\xBF; by hand\r\n[ test ]\r\nout = Speakers, HDMI 1 ; x\r\nq=\"a, b \"\r\n"
        "old=\\xe4\\xd83c\\xdfb5\r\n\n[test]\nq = \"c;\"\n[z]\nno key\n");
    EXPECT_EQ(Read("test", "out"), "stored: Speakers, HDMI 1");
    EXPECT_EQ(Read("test", "q"), "stored: c;") << "the last one";
    EXPECT_EQ(Read("test", "old"), "stored: \xC3\xA4\xF0\x9F\x8E\xB5");
    LUserSettingSetString("test", "out", "1");
    LUserSettingSetString("test", "more", "2");
    LUserSettingDeleteItem("test", "q");
    EXPECT_EQ(ReadBytes(StorePath()),
              "; by hand\r\n[ test ]\r\nout=1\nold=\\xe4\\xd83c\\xdfb5\r\n\n[test]\nmore=2\n[z]\nno key\n");
}

TEST(Settings, WhatCanNotBeKeptIsToldOnceAndLosesNothing) {
    LUserSettingSetString("test", "keep", "kept");
    std::vector<std::string> told;
    LWatchSettings([&](const LFailure& failure) { told.push_back(failure.GetReason()); });
    {
        const FullDisk full;
        LUserSettingSetString("test", "keep", "lost");
        LUserSettingDeleteItem("test", "keep");
    }
    EXPECT_EQ(told, std::vector<std::string>{"File too large"});
    EXPECT_EQ(Read("test", "keep"), "stored: kept");
}

TEST(Settings, ALockThatIsNotLetGoKeepsNobody) {
    LUserSettingSetString("test", "locked", "1");
    const LExclusiveLock lock((StorePath() + ".writer").c_str(), 0);
    ASSERT_TRUE(lock.IsHeld());
    LUserSettingSetString("test", "unlocked", "1");
    EXPECT_EQ(Read("test", "unlocked"), "stored: 1");
}

TEST(Settings, ProgramsThatWriteAtOnceLoseNothing) {
    constexpr int Keys = 60;
    const auto write = [](const char* section) {
        for (int i = 0; i < Keys; ++i)
            LUserSettingSet(section, "key" + std::to_string(i), i), usleep(1000);
    };
    const pid_t other = fork();
    if (other == 0) {
        write("other");
        _exit(0);
    }
    write("own");
    waitpid(other, nullptr, 0);
    for (const char* section : {"own", "other"})
        for (int i = 0; i < Keys; ++i)
            ASSERT_EQ(LUserSettingGet(section, "key" + std::to_string(i), -1), i) << section;
}

TEST(Settings, AProgramThatIsKilledLeavesAWholeFile) {
    LUserSettingSetString("test", "keep", "kept");
    for (int round = 0; round < 10; ++round) {
        const pid_t writer = fork();
        if (writer == 0)
            for (int i = 0;; ++i)
                LUserSettingSetString("test", "busy", std::string(200, static_cast<char>('a' + i % 26)));
        usleep(7000 + 1000 * round);
        kill(writer, SIGKILL);
        waitpid(writer, nullptr, 0);
        EXPECT_EQ(Read("test", "keep"), "stored: kept");
        const std::string busy = Read("test", "busy");
        if (busy != "not stored: the default") {
            EXPECT_EQ(busy, "stored: " + std::string(200, busy.back()));
        }
    }
    LUserSettingSetString("test", "after", "1");
    EXPECT_EQ(Read("test", "after"), "stored: 1") << "no lock is left behind";
}

} // namespace
