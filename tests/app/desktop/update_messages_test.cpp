#include "app/desktop/update_check.h"
#include "gui/process_dialog.h"
#include "support/app_window.h"
#include "support/local_server.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;

const char* const Current = "Version Current|The current version is up-to-date";
const char* const Available = "Update Version Available|An updated version of this software is now available "
                              "for download online. Do you "
                              "want to see more information about the new version?";

/// The check with a server of the test.
struct LocalCheck : LProcessCheckForVersionUpdates {
    std::string url;
};

LProcessResult Process(LProgressDialog& dialog, LocalCheck& job) {
    return ProcessVersionFile(dialog, job.url.c_str(), 5000, job);
}

TEST_F(App, TheUserLearnsWhetherThereIsANewerVersion) {
    using enum LMessageAnswer;
    const std::tuple<const char*, LMessageAnswer, const char*, Texts> cases[] = {
        {"version=2.15&info=http://a.example/&x=1", Yes, Available, {"http://a.example/"}},
        {"version=2.2\ninfo=http://a.example/\n", Yes, Available, {"http://a.example/"}},
        {"version=2.15&info=http://a.example/", No, Available, {}},
        {"version=2.15&info=http://a.example/", Cancel, Available, {}},
        {"version=2.15&info=file:///etc/passwd", Yes, Available, {}},
        {"version=2.14&info=http://a.example/", Ok, Current, {}},
        {"version=2.100&info=http://a.example/", Ok, Current, {}},
        {"version=nan&info=http://a.example/", Ok, Current, {}},
    };
    for (const auto& each : cases)
        Run([&](MemoryMainWindow&) {
            const auto& [reply, answer, box, urls] = each;
            LocalServer server([text = reply](int connection) { SendText(connection, text); });
            LocalCheck check;
            check.url = server.GetUrl();
            toolkit->answers = {answer};
            ASSERT_TRUE(ProcessDialogRun(*dialog, "", check));
            TellAboutVersion(*dialog, check);
            EXPECT_THAT(toolkit->boxes, ElementsAre(box)) << reply;
            EXPECT_EQ(toolkit->boxButtons[0],
                      box == Available ? LMessageButtons::YesNoCancel : LMessageButtons::OkFine);
            EXPECT_EQ(toolkit->urls, urls) << reply;
        });
}

TEST_F(App, ACancelledUpdateCheckEndsWithoutAWord) {
    Run([this](MemoryMainWindow&) {
        Texts captions;
        toolkit->onDialog = [&](MemoryDialog& opened) {
            toolkit->whileDispatched = [&] {
                captions = {opened.caption, opened.controls.GetText(101)};
                opened.Press(LCommandCancel); // before anything is asked of the network
            };
        };
        LocalCheck check;
        check.url = "http://localhost:1/";
        EXPECT_FALSE(ProcessDialogRun(*dialog, "Checking", check));
        toolkit->whileDispatched = {};
        EXPECT_EQ(captions, Texts(2, "Checking"));
        EXPECT_EQ(toolkit->boxes, Texts{});
    });
}

} // namespace
