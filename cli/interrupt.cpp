#include "cli/interrupt.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <initializer_list>
#include <unistd.h>

namespace {

volatile std::sig_atomic_t interrupted = 0;
int pipeEnds[2] = {-1, -1}; // the handler writes into the second, for those who wait at the first

void Remember(int signal) {
    interrupted = 1;
    std::signal(signal, SIG_DFL); // the second one ends the program
    const int error = errno;
    [[maybe_unused]] const ssize_t ignored = write(pipeEnds[1], "", 1);
    errno = error;
}

} // namespace

void CatchInterrupts() {
    if (pipe2(pipeEnds, O_CLOEXEC | O_NONBLOCK) != 0)
        pipeEnds[0] = pipeEnds[1] = -1;
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction old {};
        sigaction(signal, nullptr, &old);
        if (old.sa_handler == SIG_IGN) // as under nohup, or in the background of a script
            continue;
        struct sigaction action {};
        action.sa_handler = Remember; // without SA_RESTART: a write that waits for a pipe ends
        sigaction(signal, &action, nullptr);
    }
}

bool IsInterrupted() {
    return interrupted != 0;
}

int GetInterruptDescriptor() {
    return pipeEnds[0];
}
