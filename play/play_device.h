#pragma once

#include <array>
#include <cstdint>
#include <string>

/// One output of the sound server or system. An empty entry has no name and the id -1.
struct LSoundPlayDeviceListItem {
    std::uint32_t id =
        0xFFFFFFFF;         ///< tells the outputs of this computer apart; stable while an output is there
    std::string name;       ///< as it is shown to people; at most 259 bytes
    std::string systemName; ///< as the sound server knows it
    bool isDefault = false; ///< where sound goes that asks for no output
};

inline constexpr int MaxPlayDevices = 32;
using LSoundPlayDeviceList = std::array<LSoundPlayDeviceListItem, MaxPlayDevices>;

/// Clears the list and fills it with the outputs there are, at most 32, in the server's order; returns how
/// many. 0 where there is no server or card, or where it doesn't answer within two seconds, for which it
/// waits.
int GetSoundPlayDeviceList(LSoundPlayDeviceList& list);

/// The output that a player opens, by its place in the list: 0 is the system's default, n the n-th output. It
/// stands for the output that had this place when it was made, so that a list that changes meanwhile leads to
/// no other.
class LSoundPlayDevice {
public:
    static constexpr const char* DefaultName = "[Default Sound Out]";

    /// The default output, whichever that is when playback starts.
    LSoundPlayDevice() = default;
    /// The output at this place; one beyond the list is no output, and playing on it fails.
    explicit LSoundPlayDevice(int listIndex);

    /// The output that `GetListDeviceIndex` finds for the name.
    static LSoundPlayDevice OfName(const char* name);

    int GetIndex() const { return index; }
    bool IsDefault() const { return index == 0; }
    /// As the sound server knows the output; empty for the default one.
    const std::string& GetSystemName() const { return systemName; }

    /// 1-based; 0 where no output has this id.
    static int GetDeviceIndexById(std::uint32_t id);
    /// 0 for exactly the default's name and for a name that no output has; otherwise the 1-based place of the
    /// first output of that name, in any case.
    static int GetListDeviceIndex(const char* name);
    /// The name at this place, empty beyond the list.
    static std::string GetListDeviceName(int index);

private:
    int index = 0;
    std::string systemName;
};
