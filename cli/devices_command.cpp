#include "cli/commands.h"

#include "cli/print.h"
#include "cli/refusal.h"
#include "play/play_device.h"
#include "play/room_for_output.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <string>

namespace {

int ListDevices() {
    if (!HasRoomForOutput())
        return Refuse("devices", "this process may have no more files or threads");
    LSoundPlayDeviceList list;
    if (GetSoundPlayDeviceList(list) == 0)
        return Refuse("devices",
                      "there is no sound output: no sound server or card was found, or it doesn't answer");
    std::string text;
    for (const LSoundPlayDeviceListItem& item : list)
        if (!item.name.empty())
            text.append(item.isDefault ? "* " : "  ").append(item.name).append("\n");
    return PrintAll(text);
}

} // namespace

void AddDevicesCommand(CLI::App& program, int& status) {
    CLI::App* command = program.add_subcommand("devices", "List the sound outputs; * marks the default");
    command->callback([&status] { status = ListDevices(); });
}
