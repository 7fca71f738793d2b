#include "app/desktop/help_pages.h"
#include "app/desktop/web_links.h"
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
        Texts links = ValuesOf("href", page);
        for (const char* picture : {"src", "srcset"})
            for (const std::string& each : ValuesOf(picture, page))
                links.push_back(each);
        for (const std::string& link : links) {
            const std::string target = link.substr(0, link.find('#'));
            const std::filesystem::path leadsTo = target.empty() ? file.path() : folder / target;
            EXPECT_TRUE(std::filesystem::is_regular_file(leadsTo)) << file.path() << ": " << link;
            if (link != target) {
                EXPECT_THAT(ValuesOf("id", ReadBytes(leadsTo)), Contains(link.substr(target.size() + 1)))
                    << file.path();
            }
        }
    }
    EXPECT_EQ(pages, 9);
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

TEST_F(App, NothingLeadsToAWebSiteThatIsNotSet) {
    const std::tuple<int, const char*, const char*> links[] = {
        {CommandWebSite, "https://a.org/s/", "https://a.org/s/"},
        {CommandReportProblem, "http://example.org/", "http://example.org/problem.html"},
        {CommandAbout, "https://a.org/", ""},
        {CommandWebSite, "https://www.quenbysoftware.example/sonvire/", ""},
        {CommandWebSite, "https://a.example:80/", ""}};
    for (const auto& [command, site, address] : links)
        EXPECT_EQ(GetWebLink(command, site), address) << site;
    dialogs = {[](MemoryDialog& about) {
        EXPECT_EQ(about.controls.focus, LCommandOk);
        EXPECT_EQ(about.controls.GetText(105), "Version 2.14");
        EXPECT_FALSE(about.controls[CommandWebSite].enabled);
        about.Press(LCommandHelp);
        EXPECT_FALSE(about.ended);
    }};
    Run([&](MemoryMainWindow& window) {
        window.Choose(CommandAbout);
        EXPECT_EQ(window.menu->Pick(CommandWebSite), 0);
        EXPECT_EQ(window.menu->Pick(CommandReportProblem), 0);
        window.Choose(CommandCheckForUpdates);
        EXPECT_THAT(toolkit->boxes, ElementsAre(HasSubstr("no server that it could ask")));
    });
    EXPECT_THAT(toolkit->urls, ElementsAre(HasSubstr("/index.html"))) << "nor are thanks said at the end";
}

TEST_F(App, AWebPageIsNamedWhereThereIsNoBrowser) {
    Run([&](MemoryMainWindow&) {
        toolkit->hasBrowser = false;
        OpenWebPage(*dialog, "https://a.org/");
        EXPECT_THAT(toolkit->boxes, ElementsAre(HasSubstr("The address is https://a.org/")));
    });
}

TEST(FileUrl, EncodesWhatAnAddressCannotHold) {
    EXPECT_EQ(MakeFileUrl("/a b/50%#?\xC3\xA9.txt"), "file:///a%20b/50%25%23%3F%C3%A9.txt");
}

} // namespace
