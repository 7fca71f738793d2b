#include "app/window/device_list.h"

#include "app/window/way_back.h"
#include "play/play_device.h"
#include "sys/background.h"

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
    : back(std::make_shared<WayBack>(toolkit)),
      list(std::move(listNames)),
      tell(std::move(changed)) {}

void DeviceList::Refresh() {
    if (looking)
        return;
    looking = RunInBackground([this, way = back, listNames = list] {
        way->Post([this, names = listNames()] {
            looking = false;
            if (names != known)
                tell(known.emplace(names));
        });
    });
}

void DeviceList::Leave() {
    back->Shut();
}
