#include "sys/desktop/settings.h"

#include "support/temp_dir.h"

#include <gtest/gtest.h>

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
    struct {
        const char* text;
        int number;
        bool truth; // 77 and true being the defaults
    } const cases[] = {{"abc", 0, true},
                       {"", 77, true},
                       {"0", 0, false},
                       {"00", 0, false},
                       {"false", 0, true},
                       {"1", 1, true},
                       {" -12x", -12, true},
                       {"99999999999", 2147483647, true},
                       {"a, b;c=%\"\\\n\xC3\xA4", 0, true}};
    for (const auto& each : cases) {
        LUserSettingSetString("test", "form", each.text);
        EXPECT_EQ(Read("test", "form"), std::string("stored: ") + each.text);
        EXPECT_EQ(LUserSettingGet("test", "form", 77), each.number) << each.text;
        EXPECT_EQ(LUserSettingGet("test", "form", true), each.truth) << each.text;
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
    EXPECT_EQ(LUserSettingGet("test", "list", 7), 7);
    EXPECT_EQ(LUserSettingGet("test", "bad", 7), 7);
    EXPECT_EQ(LUserSettingGet("test", "good", 7), 2);
    LUserSettingSetString("test", "new", "3");
    EXPECT_EQ(LUserSettingGet("test", "good", 7), 2);
    EXPECT_EQ(LUserSettingGet("test", "new", 7), 3);
}

TEST(Settings, ProgramsThatWriteAtOnceLoseNothing) {
    constexpr int Keys = 60;
    const auto write = [](const char* section) {
        for (int i = 0; i < Keys; ++i)
            LUserSettingSet(section, "key" + std::to_string(i), i);
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
