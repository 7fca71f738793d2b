#include "play/server_turn.h"

void ServerQueue::PassHanging() {
    if (!current || ServerTurn::Clock::now() < current->latest)
        return;
    current->state = ServerTurn::Hanging;
    current = nullptr;
    ++hanging;
    changed.notify_all();
}

bool ServerTurn::Begin(const std::stop_token& unwanted) {
    std::unique_lock lock(queue.mutex);
    queue.PassHanging();
    while (queue.current) {
        const int before = queue.hanging;
        const Clock::time_point until = queue.current->latest; // which may move, or go, while this waits
        queue.changed.wait_until(lock, unwanted, until,
                                 [&] { return !queue.current || queue.hanging > before; });
        queue.PassHanging();
        if (unwanted.stop_requested() || queue.hanging > before)
            return false;
    }
    if (queue.hanging >= ServerQueue::MaxHanging)
        return false;
    queue.current = this;
    state = On;
    latest = Clock::now() + ServerQueue::Limit;
    return true;
}

void ServerTurn::Renew() {
    const std::scoped_lock lock(queue.mutex);
    latest = Clock::now() + ServerQueue::Limit;
}

void ServerTurn::End() {
    const std::scoped_lock lock(queue.mutex);
    if (state == On)
        queue.current = nullptr;
    if (state == Hanging)
        --queue.hanging;
    state = Waiting;
    queue.changed.notify_all();
}

bool ServerTurn::IsLate() const {
    const std::scoped_lock lock(queue.mutex);
    return state == Hanging || (state == On && Clock::now() >= latest);
}
