#include "cli/interrupt.h"

#include <csignal>
#include <initializer_list>

namespace {

volatile std::sig_atomic_t interrupted = 0;

void Remember(int signal) {
    interrupted = 1;
    std::signal(signal, SIG_DFL); // the second one ends the program
}

} // namespace

void CatchInterrupts() {
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
