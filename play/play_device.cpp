#include "play/play_device.h"

#include "play/cubeb_output.h"
#include "play/output_names.h"

namespace {

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
                                                   .name = output.name,
                                                   .systemName = output.systemName,
                                                   .isDefault = output.isDefault};
    }
    return count;
}

LSoundPlayDevice::LSoundPlayDevice(int listIndex) : mayBeDefault(listIndex <= 0) {
    if (!mayBeDefault)
        FindDevice([&](int place, const LSoundPlayDeviceListItem& item) {
            if (place != listIndex)
                return false;
            systemName = item.systemName;
            return true;
        });
}

LSoundPlayDevice LSoundPlayDevice::OfName(const std::string& name) {
    LSoundPlayDevice device;
    device.mayBeDefault = name == DefaultName;
    if (!device.mayBeDefault)
        device.name = name;
    return device;
}

LSoundPlayDevice LSoundPlayDevice::OfNameOrDefault(const std::string& name) {
    LSoundPlayDevice device = OfName(name);
    device.mayBeDefault = true;
    return device;
}

bool LSoundPlayDevice::Is(const std::string& outputSystemName, const std::string& outputName) const {
    return (!systemName.empty() && systemName == outputSystemName) ||
           (!name.empty() && IsSameOutputName(name, outputName));
}

int LSoundPlayDevice::GetDeviceIndexById(std::uint32_t id) {
    return FindDevice([id](int, const LSoundPlayDeviceListItem& item) { return item.id == id; });
}

int LSoundPlayDevice::GetListDeviceIndex(const char* name) {
    const LSoundPlayDevice device = OfName(name);
    return FindDevice(
        [&](int, const LSoundPlayDeviceListItem& item) { return device.Is(item.systemName, item.name); });
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
