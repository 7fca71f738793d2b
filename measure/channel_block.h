#pragma once

#include <span>

/// Samples of one channel, full scale being 1. Those of several channels that go together have one length.
using ChannelBlock = std::span<const double>;
