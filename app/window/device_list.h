#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class LToolkit;
class WayBack;

/// The names of the outputs there are now. Waits for the sound server.
std::vector<std::string> GetOutputNames();

/// Looks for the outputs without making the window wait, and tells when they are others than before. UI
/// thread only.
class DeviceList {
public:
    /// `listNames` is called on a thread of its own, `changed` from the event loop.
    DeviceList(LToolkit& toolkit, std::function<std::vector<std::string>()> listNames,
               std::function<void(const std::vector<std::string>&)> changed);
    ~DeviceList() { Leave(); }
    DeviceList(const DeviceList&) = delete;
    DeviceList& operator=(const DeviceList&) = delete;

    void Refresh();
    /// Nothing is told any more.
    void Leave();

private:
    std::shared_ptr<WayBack> back;
    std::function<std::vector<std::string>()> list;
    std::function<void(const std::vector<std::string>&)> tell;
    std::optional<std::vector<std::string>> known; ///< nothing before the first look
    bool looking = false;
};
