#pragma once

#include "cli/program.h"
#include "support/run_program.h"

#include <unistd.h>
#include <wordexp.h>

/// sonvire-cli run in this process, and other programs, in a folder of the test's own.
class CommandLine : public testing::Test {
protected:
    CommandLine() { EXPECT_EQ(chdir(Path("").c_str()), 0); }
    ~CommandLine() override { EXPECT_EQ(chdir("/"), 0); }

    /// The arguments are quoted as a shell's.
    ProgramResult Cli(const std::string& arguments) const {
        wordexp_t words{};
        EXPECT_EQ(wordexp(("sonvire-cli " + arguments).c_str(), &words, WRDE_NOCMD), 0) << arguments;
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        const int status = RunCommandLine(static_cast<int>(words.we_wordc), words.we_wordv);
        wordfree(&words);
        const std::string output = testing::internal::GetCapturedStdout();
        return {status, output, testing::internal::GetCapturedStderr()};
    }
    std::string Path(const std::string& name) const { return dir / name; }
    std::string Read(const std::string& name) const { return ReadBytes(dir / name); }
    void Write(const std::string& name, const std::string& bytes) const { WriteBytes(dir / name, bytes); }

    const TempDir dir;
};
