#pragma once

#include <csignal>
#include <cstddef>

/// For as long as it exists, the thread that has made it runs signal handlers on this memory, so that one can
/// tell of a stack that is full. It may stand on that stack itself, at its beginning.
class LAlternateStack {
public:
    LAlternateStack() {
        stack_t stack{};
        stack.ss_sp = memory;
        stack.ss_size = sizeof memory;
        sigaltstack(&stack, &before);
    }
    ~LAlternateStack() { sigaltstack(&before, nullptr); }
    LAlternateStack(const LAlternateStack&) = delete;
    LAlternateStack& operator=(const LAlternateStack&) = delete;

private:
    stack_t before{};
    alignas(std::max_align_t) char memory[65536];
};
