#include "app/window/device_list.h"

#include "gui/toolkit.h"
#include "play/play_device.h"
#include "sys/background.h"

#include <mutex>
#include <optional>

/// What the background work and the window both hold. The toolkit is left, under the mutex, before it ends.
struct DeviceList::Shared {
    std::mutex mutex;
    LToolkit* toolkit; ///< under the mutex
    std::function<std::vector<std::string>()> listNames;
    std::function<void(const std::vector<std::string>&)> changed; ///< empty once the window has left
    std::optional<std::vector<std::string>> known;                ///< nothing before the first look
    bool looking = false;
};

std::vector<std::string> GetOutputNames() {
    LSoundPlayDeviceList found;
    const int count = GetSoundPlayDeviceList(found);
    std::vector<std::string> names;
    names.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        names.push_back(found[static_cast<std::size_t>(i)].name);
    return names;
}

DeviceList::DeviceList(LToolkit& toolkit, std::function<std::vector<std::string>()> listNames,
                       std::function<void(const std::vector<std::string>&)> changed)
    : shared(std::make_shared<Shared>()) {
    shared->toolkit = &toolkit;
    shared->listNames = std::move(listNames);
    shared->changed = std::move(changed);
}

void DeviceList::Refresh() {
    if (shared->looking)
        return;
    shared->looking = RunInBackground([state = shared] {
        const std::vector<std::string> names = state->listNames();
        const std::scoped_lock lock(state->mutex);
        if (!state->toolkit)
            return;
        state->toolkit->Post([state, names] {
            state->looking = false;
            if (state->changed && names != state->known)
                state->changed(state->known.emplace(names));
        });
    });
}

void DeviceList::Leave() {
    shared->changed = nullptr;
    const std::scoped_lock lock(shared->mutex);
    shared->toolkit = nullptr;
}
