#include "support/app_window.h"
#include "sys/desktop/folders.h"

#include <gmock/gmock.h>

namespace {

using ::testing::HasSubstr;

TEST_F(App, TheReportOfACrashIsOfferedOnce) {
    using enum LMessageAnswer;
    struct {
        LMessageAnswer answer;
        bool hasBrowser;
        std::size_t opened;
    } const cases[] = {{No, true, 0}, {Yes, true, 1}, {Yes, false, 1}};
    const std::string missing = folder / "missing.tdf";
    const std::string kept = GetUserDataFolder() + "/last-crash-report.txt";
    for (const auto& each : cases) {
        WriteBytes(GetUserDataFolder() + "/crash-report.txt", "a report");
        Run(
            [&](MemoryMainWindow& window) {
                EXPECT_TRUE(window.visible);
                ASSERT_GE(toolkit->boxes.size(), 2U);
                EXPECT_THAT(toolkit->boxes[0], HasSubstr(missing)) << "the argument comes first";
                EXPECT_THAT(toolkit->boxes[1], HasSubstr("Sonvire|Sonvire ended unexpectedly"));
                EXPECT_EQ(toolkit->urls, Texts(each.opened, MakeFileUrl(kept)));
                EXPECT_EQ(toolkit->boxes.size(), each.hasBrowser ? 2U : 3U);
                EXPECT_TRUE(each.hasBrowser || toolkit->boxes[2].ends_with("\"" + kept + "\"."));
            },
            {missing},
            [&](MainDialog&) {
                toolkit->answers = {Ok, each.answer};
                toolkit->hasBrowser = each.hasBrowser;
            });
        EXPECT_EQ(ReadBytes(kept), "a report");
        Run([&](MemoryMainWindow&) { EXPECT_EQ(toolkit->boxes, Texts{}); });
    }
}

} // namespace
