#pragma once

#include "play/player_notify.h"
#include "sys/event_loop.h"

#include <chrono>
#include <functional>
#include <string>
#include <vector>

/// Runs the event loop until the condition holds; false when that takes so long that something hangs.
inline bool WaitUntil(LEventLoop& loop, const std::function<bool()>& holds) {
    const auto latest = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    while (!holds() && std::chrono::steady_clock::now() < latest)
        loop.RunOnce(1);
    return holds();
}

inline void RunFor(LEventLoop& loop, int milliseconds) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
    while (std::chrono::steady_clock::now() < end)
        loop.RunOnce(1);
}

/// Writes down what a player reports.
class Owner : public LSoundPlayerNotify {
public:
    void spntfPlay(long id) override { events.push_back("play " + std::to_string(id)); }
    void spntfStop(long id) override {
        events.push_back("stop " + std::to_string(id));
        ++stops;
    }
    void spntfTime(LSoundTime time, long) override {
        events.push_back("time " + std::to_string(time.GetMilliseconds()));
    }
    void spntfLevel(const LDBMC& levels, long) override {
        std::string text = "level";
        for (int c = 0; c < levels.GetChannels(); ++c)
            text += " " + std::to_string(levels[c].GetDecibels());
        events.push_back(text);
    }

    std::vector<std::string> events;
    int stops = 0;
};
