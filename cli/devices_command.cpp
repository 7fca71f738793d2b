#include "cli/commands.h"

#include "cli/refusal.h"
#include "play/play_device.h"
#include "play/room_for_output.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <cstdio>

namespace {

int ListDevices() {
    if (!HasRoomForOutput())
        return Refuse("devices", "this process may have no more files or threads");
    LSoundPlayDeviceList list;
    if (GetSoundPlayDeviceList(list) == 0)
        return Refuse("devices",
                      "there is no sound output: no sound server or card was found, or it doesn't answer");
    for (const LSoundPlayDeviceListItem& item : list)
        if (!item.name.empty())
            std::printf("%c %s\n", item.isDefault ? '*' : ' ', item.name.c_str());
    return ExitCompleted;
}

} // namespace

void AddDevicesCommand(CLI::App& program, int& status) {
    CLI::App* command = program.add_subcommand("devices", "List the sound outputs; * marks the default");
    command->callback([&status] { status = ListDevices(); });
}
