#include "interrupt.h"

#include <csignal>
#include <initializer_list>

namespace {

volatile std::sig_atomic_t interrupted = 0;

void Remember(int signal) {
    interrupted = 1;
    std::signal(signal, SIG_DFL);
}

} // namespace

void CatchInterrupts() {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction action {};
        action.sa_handler = Remember;
        action.sa_flags = SA_RESTART;
        sigaction(signal, &action, nullptr);
    }
}

bool IsInterrupted() {
    return interrupted != 0;
}
