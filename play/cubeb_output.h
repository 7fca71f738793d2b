#pragma once

#include "play/sound_channel.h"

#include <string>
#include <vector>

struct CubebOutput {
    std::string systemName;
    std::string name;
    bool isDefault;
};

/// The outputs of the sound server, or of the system where none runs. Waits for the server, at most two
/// seconds; empty where there is none.
std::vector<CubebOutput> ListCubebOutputs();

/// Opens a channel through cubeb. All calls into cubeb are made by a background thread that belongs to the
/// channel and outlives it until the sound has faded out, so that a server that has died or hangs holds
/// nobody up. A server that doesn't answer within five seconds counts as none.
std::unique_ptr<LSoundChannel> OpenCubebChannel(const LSoundChannelRequest& request);
