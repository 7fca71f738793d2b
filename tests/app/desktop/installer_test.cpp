// sonvire -installer as the desktop sees it: what it registers is judged by the desktop's own programs.

#include "support/run_program.h"
#include "support/temp_dir.h"

#include <gmock/gmock.h>

#include <csignal>
#include <sys/stat.h>

namespace {

using ::testing::HasSubstr;

constexpr const char* Entry = "data/applications/com.quenbysoftware.Sonvire.desktop";

std::string Quoted(const std::string& path) {
    return "'" + path + "'";
}

class Installer : public ::testing::Test {
protected:
    /// Where there is no display to open a window on, and the user's data folder is `data`.
    ProgramResult Install(const std::string& arguments, const std::string& program = SONVIRE,
                          const std::string& path = std::getenv("PATH")) const {
        return RunProgram("ulimit -c 0; env QT_QPA_PLATFORM=none PATH=" + Quoted(path) +
                          " XDG_DATA_HOME=" + Quoted(dir / "data") + " " + Quoted(program) + " " + arguments);
    }
    /// What the desktop answers that knows nothing but the user's data folder.
    std::string Gio(const std::string& arguments) const {
        return RunProgram("XDG_DATA_DIRS=/nonexistent XDG_DATA_HOME=" + (dir / "data") + " gio " + arguments)
            .output;
    }
    /// A program of this name that takes the place of another.
    void WriteScript(const std::string& path, const std::string& commands) const {
        std::filesystem::remove(path);
        WriteBytes(path, "#!/bin/sh\n" + commands + "\n");
        chmod(path.c_str(), 0755);
    }

    TempDir dir;
};

TEST_F(Installer, RegistersTheProgramAndItsFiles) {
    for (int time = 0; time < 2; ++time) {
        const ProgramResult result = Install("-installer");
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.errors, "");
        EXPECT_THAT(result.output, HasSubstr("Registered " + dir / Entry + "\n"));
    }
    const ProgramResult validation = RunProgram("desktop-file-validate " + dir / Entry);
    EXPECT_EQ(validation.status, 0);
    EXPECT_EQ(validation.output, "");

    WriteBytes(dir / "a.tdf", std::string(797, '\0'));
    WriteBytes(dir / "A.TDL", "500ms silence.\n");
    const std::pair<const char*, std::string> files[] = {{"a.tdf", "application/x-sonvire-tone"},
                                                         {"A.TDL", "application/x-sonvire-tone-list"}};
    for (const auto& [name, type] : files) {
        std::string icon = type;
        icon.replace(icon.find('/'), 1, "-");
        EXPECT_THAT(Gio("info -a standard::content-type,standard::icon " + dir / name),
                    AllOf(HasSubstr("type: " + type + "\n"), HasSubstr("icon: " + icon + ",")));
        EXPECT_THAT(Gio("mime " + type), HasSubstr("com.quenbysoftware.Sonvire.desktop")) << type;
        EXPECT_THAT(ReadBytes(dir / "data/icons/hicolor/scalable/mimetypes/" + icon + ".svg"),
                    HasSubstr("</svg>"));
    }
    EXPECT_THAT(ReadBytes(dir / "data/icons/hicolor/scalable/apps/com.quenbysoftware.Sonvire.svg"),
                HasSubstr("</svg>"));
    for (const auto& file : std::filesystem::recursive_directory_iterator(dir / "data"))
        EXPECT_FALSE(file.path().filename().string().starts_with('.')) << "left over: " << file.path();
}

TEST_F(Installer, RegistersTheProgramWhereverItLies) {
    const std::string home = dir / R"(a "b" $c\d `e`)";
    const std::string program = home + "/bin/sonvire";
    std::filesystem::create_directories(home + "/bin");
    std::filesystem::copy_file(SONVIRE, program);
    std::filesystem::create_symlink(std::filesystem::path(SONVIRE).parent_path().parent_path() / "share",
                                    home + "/share");
    ASSERT_EQ(Install("-installer", program).status, 0);

    const std::string opened = dir / "opened";
    ASSERT_EQ(mkfifo(opened.c_str(), 0600), 0);
    WriteScript(program, "printf %s \"$1\" >" + opened);
    WriteBytes(dir / "my tone.tdf", "");
    Gio("launch " + dir / Entry + " '" + dir / "my tone.tdf" + "'");
    EXPECT_EQ(RunProgram("exec timeout 20 cat " + opened).output, dir / "my tone.tdf");
}

TEST_F(Installer, IsAskedForByTheFirstArgumentAlone) {
    for (const char* arguments : {"tone -installer", "-installer2", "--installer", ""}) {
        const ProgramResult result = Install(arguments);
        EXPECT_EQ(result.status, 2) << arguments; // without a display there is no window
        EXPECT_THAT(result.errors, HasSubstr("there is no display")) << arguments;
        EXPECT_FALSE(std::filesystem::exists(dir / "data")) << arguments;
    }
}

TEST_F(Installer, RefreshesWithWhatIsThere) {
    std::filesystem::create_directory(dir / "bin");
    const ProgramResult alone = Install("-installer", SONVIRE, dir / "bin");
    EXPECT_EQ(alone.status, 0);
    EXPECT_THAT(alone.output,
                HasSubstr("Left " + dir / "data/mime" + " as it was: update-mime-database is not"));
    EXPECT_TRUE(std::filesystem::exists(dir / Entry));
    WriteScript(dir / "bin/update-desktop-database", "exit 3");
    const ProgramResult failed = Install("-installer", SONVIRE, dir / "bin");
    EXPECT_EQ(failed.status, 1);
    EXPECT_EQ(failed.errors, "sonvire: " + dir / "data/applications" + ": update-desktop-database failed\n");
}

TEST_F(Installer, SaysWhatFailed) {
    WriteBytes(dir / "data", "a file in the folder's place");
    const ProgramResult result = Install("-installer");
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.errors,
              "sonvire: " + dir / "data/icons/hicolor/scalable/apps/com.quenbysoftware.Sonvire.svg" +
                  ": Not a directory\n");
    EXPECT_EQ(ReadBytes(dir / "data"), "a file in the folder's place");
}

} // namespace
