#include "support/run_program.h"

#include <csignal>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

pid_t Spawn(const std::string& command, const std::string& out, const std::string& errors) {
    const std::string line = "exec >" + out + " 2>" + errors + "\n" + command;
    const pid_t child = fork();
    if (child == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL); // a test that is killed leaves nothing running
        execl("/bin/sh", "sh", "-c", line.c_str(), nullptr);
        _exit(127);
    }
    return child;
}

void EndProcess(pid_t process, int signal) {
    kill(process, signal);
    waitpid(process, nullptr, 0);
}

ProgramResult RunProgram(const std::string& command, const std::function<void(pid_t)>& meanwhile) {
    const TempDir dir;
    const pid_t child = Spawn(command, dir / "out", dir / "err");
    if (meanwhile)
        meanwhile(child);
    int state = 0;
    waitpid(child, &state, 0);
    const int status = WIFEXITED(state) ? WEXITSTATUS(state) : 128 + WTERMSIG(state);
    return {status, ReadBytes(dir / "out"), ReadBytes(dir / "err")};
}

ProgramResult RunCli(const std::string& arguments, const std::function<void(pid_t)>& meanwhile) {
    return RunProgram("exec " SONVIRE_CLI " " + arguments, meanwhile);
}

void ExpectRefused(const ProgramResult& result, const std::vector<std::string>& parts) {
    EXPECT_EQ(result.status, 2) << result.errors;
    EXPECT_TRUE(result.errors.starts_with("sonvire-cli: ")) << result.errors;
    EXPECT_EQ(result.errors.find('\n'), result.errors.size() - 1) << result.errors;
    for (const std::string& part : parts)
        EXPECT_NE(result.errors.find(part), std::string::npos) << result.errors;
}
