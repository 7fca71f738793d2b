#include "app/desktop/help_pages.h"
#include "support/app_window.h"
#include "sys/desktop/folders.h"

#include <gmock/gmock.h>

namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

/// What an attribute is set to, each time in the page.
Texts ValuesOf(const std::string& attribute, const std::string& page) {
    const std::string opening = " " + attribute + "=\"";
    Texts values;
    for (std::size_t at = page.find(opening); at != std::string::npos; at = page.find(opening, at)) {
        at += opening.size();
        values.push_back(page.substr(at, page.find('"', at) - at));
    }
    return values;
}

TEST(Help, EveryLinkLeadsSomewhere) {
    const std::filesystem::path folder = GetSharedDataFolder() + "/sonvire/help";
    int pages = 0;
    for (const auto& file : std::filesystem::directory_iterator(folder)) {
        if (file.path().extension() != ".html")
            continue;
        ++pages;
        const std::string page = ReadBytes(file.path());
        EXPECT_THAT(page, HasSubstr("href=\"help.css\"")) << file.path();
        EXPECT_EQ(page.find("<script"), std::string::npos) << file.path();
        for (const std::string& link : ValuesOf("href", page)) {
            const std::string target = link.substr(0, link.find('#'));
            const std::filesystem::path leadsTo = target.empty() ? file.path() : folder / target;
            EXPECT_TRUE(std::filesystem::is_regular_file(leadsTo)) << file.path() << ": " << link;
            if (link != target) {
                EXPECT_THAT(ValuesOf("id", ReadBytes(leadsTo)), Contains(link.substr(target.size() + 1)))
                    << file.path();
            }
        }
    }
    EXPECT_EQ(pages, 6);
}

TEST_F(App, HelpOpensItsPages) {
    const std::string folder = GetSharedDataFolder() + "/sonvire/help/";
    dialogs = {[](MemoryDialog& settings) { settings.Press(LCommandHelp); }};
    Run([&](MemoryMainWindow& window) {
        window.Key(LKeyF1);
        OpenHelpPage(*dialog, HelpPage::Lists);
        OpenHelpPage(*dialog, HelpPage::Keys);
        Send({CommandPreferences});
        EXPECT_THAT(toolkit->urls, ElementsAre(HasSubstr("/index.html"), HasSubstr("/lists.html"),
                                               HasSubstr("/keys.html"), HasSubstr("/settings.html")));
        EXPECT_EQ(toolkit->urls[0], MakeFileUrl(folder + "index.html"));
        EXPECT_EQ(toolkit->boxes, Texts{}) << "every page is there";
        toolkit->hasBrowser = false;
        OpenHelpPage(*dialog, HelpPage::Keys);
        EXPECT_THAT(toolkit->boxes, ElementsAre(HasSubstr("\"" + folder + "keys.html\"")));
    });
}

TEST_F(App, LinksAndTheAboutBoxLeadToTheWebSite) {
    const std::string site = "https://www.quenbysoftware.example/sonvire/";
    dialogs = {[](MemoryDialog& about) {
        EXPECT_EQ(about.controls.focus, LCommandOk);
        EXPECT_EQ(about.controls.GetText(101), "Sonvire 2.14");
        about.Press(CommandWebSite);
        about.Press(LCommandHelp);
        EXPECT_FALSE(about.ended);
    }};
    Run([&](MemoryMainWindow& window) {
        window.Choose(CommandAbout);
        window.Choose(CommandWebSite);
        toolkit->hasBrowser = false;
        window.Choose(CommandReportProblem);
        EXPECT_THAT(toolkit->urls, ElementsAre(site, HasSubstr("/index.html"), site, site + "problem.html"));
        EXPECT_THAT(toolkit->boxes, ElementsAre(HasSubstr(site + "problem.html")));
    });
}

TEST_F(App, ThanksAreSaidAtTheFirstEndByTheUser) {
    enum { SessionEnding, NoBrowser, Browser };
    for (const int run : {SessionEnding, NoBrowser, Browser}) {
        Run([&](MemoryMainWindow&) {
            toolkit->sessionEnding = run == SessionEnding;
            toolkit->hasBrowser = run != NoBrowser;
        });
        EXPECT_EQ(toolkit->urls,
                  Texts(run == NoBrowser ? 1 : 0, "https://www.quenbysoftware.example/sonvire/thanks.html"));
        EXPECT_EQ(toolkit->boxes, Texts{}) << "also without a browser";
    }
}

TEST(FileUrl, EncodesWhatAnAddressCannotHold) {
    EXPECT_EQ(MakeFileUrl("/a b/50%#?\xC3\xA9.txt"), "file:///a%20b/50%25%23%3F%C3%A9.txt");
}

} // namespace
