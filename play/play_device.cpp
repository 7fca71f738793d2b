#include "play/play_device.h"

#include "play/cubeb_output.h"

#include <algorithm>
#include <strings.h>

namespace {

constexpr std::size_t MaxNameBytes = 259;

// FNV-1a: the server knows its outputs by name, not by number.
std::uint32_t HashName(const std::string& name) {
    std::uint32_t hash = 2166136261;
    for (const char c : name)
        hash = (hash ^ static_cast<unsigned char>(c)) * 16777619;
    return hash;
}

/// 1-based place of the first entry that has a name and for which `test` holds; 0 where there is none.
template <class Test>
int FindDevice(Test test) {
    LSoundPlayDeviceList list;
    const int count = GetSoundPlayDeviceList(list);
    int place = 0;
    for (int i = 0; i < count; ++i) {
        const LSoundPlayDeviceListItem& item = list[static_cast<std::size_t>(i)];
        if (item.name.empty())
            continue;
        ++place;
        if (test(place, item))
            return place;
    }
    return 0;
}

} // namespace

int GetSoundPlayDeviceList(LSoundPlayDeviceList& list) {
    list.fill({});
    int count = 0;
    for (const CubebOutput& output : ListCubebOutputs()) {
        if (count == MaxPlayDevices)
            break;
        list[static_cast<std::size_t>(count++)] = {.id = HashName(output.systemName),
                                                   .name = output.name.substr(0, MaxNameBytes),
                                                   .systemName = output.systemName,
                                                   .isDefault = output.isDefault};
    }
    return count;
}

LSoundPlayDevice::LSoundPlayDevice(int listIndex) : index(std::max(0, listIndex)) {
    if (index > 0)
        FindDevice([this](int place, const LSoundPlayDeviceListItem& item) {
            if (place != index)
                return false;
            systemName = item.systemName;
            return true;
        });
}

LSoundPlayDevice LSoundPlayDevice::OfName(const char* name) {
    LSoundPlayDevice device;
    if (std::string(name) != DefaultName)
        device.index = FindDevice([&](int, const LSoundPlayDeviceListItem& item) {
            const bool found = strcasecmp(item.name.c_str(), name) == 0;
            if (found)
                device.systemName = item.systemName;
            return found;
        });
    return device;
}

int LSoundPlayDevice::GetDeviceIndexById(std::uint32_t id) {
    return FindDevice([id](int, const LSoundPlayDeviceListItem& item) { return item.id == id; });
}

int LSoundPlayDevice::GetListDeviceIndex(const char* name) {
    return OfName(name).GetIndex();
}

std::string LSoundPlayDevice::GetListDeviceName(int index) {
    if (index == 0)
        return DefaultName;
    std::string found;
    FindDevice([&](int place, const LSoundPlayDeviceListItem& item) {
        if (place == index)
            found = item.name;
        return place == index;
    });
    return found;
}
