#pragma once

#include "sound/player_notify.h"
#include "sys/event_loop.h"

#include <chrono>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

/// Runs the event loop until the condition holds; false when that takes so long that something hangs.
inline bool WaitUntil(LEventLoop& loop, const std::function<bool()>& holds) {
    const auto latest = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    if (!holds())
        loop.Run(1, [&] {
            if (holds() || std::chrono::steady_clock::now() > latest)
                loop.Quit();
        });
    return holds();
}

/// Writes down what a player reports.
class Owner : public LSoundPlayerNotify {
public:
    void spntfPlay(long id) override { Add("play", id); }
    void spntfStop(long id) override {
        Add("stop", id);
        ++stops;
    }
    void spntfTime(LSoundTime time, long) override { Add("time", time.GetMilliseconds()); }
    void spntfLevel(const LDBMC& levels, long) override {
        std::ostringstream text("level", std::ios::ate);
        for (int c = 0; c < levels.GetChannels(); ++c)
            text << ' ' << int{levels[c].GetDecibels()};
        events.push_back(text.str());
    }
    void spntfCue(long) override { events.push_back("cue"); }
    void spntfPause(long) override { events.push_back("pause"); }

    std::vector<std::string> events;
    int stops = 0;

private:
    void Add(const char* event, long number) {
        std::ostringstream text;
        text << event << ' ' << number;
        events.push_back(text.str());
    }
};
