#pragma once

#include <array>
#include <cstdint>
#include <string>

/// One output of the sound server or system. An empty entry has no name and the id -1.
struct LSoundPlayDeviceListItem {
    std::uint32_t id =
        0xFFFFFFFF;         ///< tells the outputs of this computer apart; stable while an output is there
    std::string name;       ///< as it is shown to people: at most 259 bytes, and no two alike
    std::string systemName; ///< as the sound server knows it
    bool isDefault = false; ///< where sound goes that asks for no output
};

inline constexpr int MaxPlayDevices = 32;
using LSoundPlayDeviceList = std::array<LSoundPlayDeviceListItem, MaxPlayDevices>;

/// Clears the list and fills it with the outputs there are, at most 32, in the server's order; returns how
/// many. 0 where there is no server or card, or where it doesn't answer within two and a half seconds, for
/// which it waits.
int GetSoundPlayDeviceList(LSoundPlayDeviceList& list);

/// The output that a player opens: the system's default, one by its place in the list, or one by its name.
class LSoundPlayDevice {
public:
    static constexpr const char* DefaultName = "[Default Sound Out]";

    /// The default output, whichever that is when playback starts.
    LSoundPlayDevice() = default;
    /// 0 is the default, n the output that has the n-th place when this is made, so that a list that changes
    /// leads to no other; one beyond the list is no output, and playing on it fails.
    explicit LSoundPlayDevice(int listIndex);

    /// The output that has this name, in any case, when playback starts; the default for its name. The
    /// server is not asked before. Playing fails where there is none.
    static LSoundPlayDevice OfName(const std::string& name);
    /// The same, but plays on the default output where there is none.
    static LSoundPlayDevice OfNameOrDefault(const std::string& name);

    /// True for the output that is meant; never for the default one.
    bool Is(const std::string& outputSystemName, const std::string& outputName) const;
    /// True where the default output is meant, or does if the one that is meant is not there.
    bool MayBeDefault() const { return mayBeDefault; }

    /// 1-based; 0 where no output has this id.
    static int GetDeviceIndexById(std::uint32_t id);
    /// 0 for exactly the default's name and for a name that no output has; otherwise the 1-based place of the
    /// first output of that name, in any case.
    static int GetListDeviceIndex(const char* name);
    /// The name at this place, empty beyond the list.
    static std::string GetListDeviceName(int index);

private:
    std::string systemName, name; ///< what the output is known by; empty where it is not known by that
    bool mayBeDefault = true;
};
