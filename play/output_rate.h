#pragma once

#include "play/play_device.h"
#include "sys/signal_object.h"

#include <atomic>
#include <functional>
#include <memory>
#include <stop_token>

/// The question for an output's own rate, which who asks and who answers share.
struct LOutputRate {
    static constexpr int Usual = 48000;

    LSignalObject answered;
    std::atomic<int> rate = 0;  ///< once it is answered: frames per second, 0 where it can't be known
    std::stop_source forgotten; ///< asked to stop by who doesn't wait any more
};

/// Asks and returns at once. Thread: player. Blocks: no. Allocates: yes.
using LOutputRateFinder = std::function<std::shared_ptr<LOutputRate>(const LSoundPlayDevice&)>;
