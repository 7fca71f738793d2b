#include "support/run_program.h"

#include <sys/wait.h>
#include <unistd.h>

ProgramResult RunProgram(const std::string& command, const std::function<void(pid_t)>& meanwhile) {
    const TempDir dir;
    const std::string line = "exec >" + dir / "out" + " 2>" + dir / "err" + "\n" + command;
    const pid_t child = fork();
    if (child == 0) {
        execl("/bin/sh", "sh", "-c", line.c_str(), nullptr);
        _exit(127);
    }
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
