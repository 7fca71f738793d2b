#pragma once

#include "play/output_rate.h"
#include "play/sound_channel.h"

#include <string>
#include <vector>

struct CubebOutput {
    std::string systemName;
    std::string
        name; ///< at most 259 bytes; no other output has it: a second USBDAC is listed as "USBDAC (2)"
    bool isDefault;
};

/// The outputs of the sound server, or of the system where none runs. Waits for the server, at most two and a
/// half seconds; empty where there is none.
std::vector<CubebOutput> ListCubebOutputs();

/// Asks the sound server for the rate of an output. A server that doesn't answer is treated as for a channel.
std::shared_ptr<LOutputRate> FindCubebRate(const LSoundPlayDevice& device);

/// Opens a channel through cubeb. All calls into cubeb are made by a background thread that belongs to the
/// channel and outlives it until the sound has faded out, so that a server that has died or hangs holds
/// nobody up. One channel is opened after the other: one that is closed before its turn costs nothing. A
/// server that doesn't answer within two and a half seconds counts as none (`ServerQueue`).
std::unique_ptr<LSoundChannel> OpenCubebChannel(const LSoundChannelRequest& request);
