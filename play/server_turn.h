#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <stop_token>

class ServerTurn;

/// Those who want to call a sound server, or a library that may never return: one after the other. One that
/// takes longer than the limit counts as hanging and is passed by; once four hang, nobody gets a turn until
/// one of them returns. Any thread; lives as long as the program.
class ServerQueue {
public:
    /// How long a server may take to answer.
    static constexpr std::chrono::milliseconds Limit{2500};

private:
    friend class ServerTurn;

    void PassHanging();

    static constexpr int MaxHanging = 4;

    std::mutex mutex;
    std::condition_variable_any changed;
    ServerTurn* current = nullptr; ///< under the mutex, as all that follows and what turns hold
    int hanging = 0;
};

/// One place in the queue.
class ServerTurn {
public:
    explicit ServerTurn(ServerQueue& among) : queue(among) {}
    /// As `End`.
    ~ServerTurn() { End(); }
    ServerTurn(const ServerTurn&) = delete;
    ServerTurn& operator=(const ServerTurn&) = delete;

    /// Waits for the turn. False where it doesn't come: `unwanted` has been asked to stop, the turn before
    /// hangs, or too many do. Thread: any. Blocks: yes, for the limit at most.
    bool Begin(const std::stop_token& unwanted);
    /// The server has answered: the limit counts from here. Thread: any. Blocks: no.
    void Renew();
    /// Thread: any. Blocks: no.
    void End();
    /// True while the turn takes longer than the limit. Thread: any. Blocks: no.
    bool IsLate() const;

private:
    friend class ServerQueue;
    using Clock = std::chrono::steady_clock;

    ServerQueue& queue;
    enum { Waiting, On, Hanging } state = Waiting;
    Clock::time_point latest; ///< of the end
};
