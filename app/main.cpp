#include "app/desktop/crash_offer.h"
#include "app/desktop/installer.h"
#include "app/desktop/product.h"
#include "app/window/main_dialog.h"
#include "gui/qt/qt_session_service.h"
#include "gui/qt/qt_toolkit.h"
#include "play/cubeb_output.h"
#include "sys/background.h"
#include "sys/file.h"

#include <clocale>
#include <cstdio>
#include <string_view>

namespace {

constexpr unsigned int EndOfWorkMs = 500;

constexpr const char* Usage = "usage: sonvire [FILE]          a tone (.tdf) or a tone list (.tdl)\n"
                              "       sonvire -installer      registers the program for the user\n"
                              "sonvire-cli does without a window.\n";

/// What needs no window; true where it was one of these, with the exit status.
bool RunWithoutWindow(std::string_view argument, int& status) {
    status = 0;
    if (argument == "-installer")
        status = InstallerMain();
    else if (argument == "--version")
        std::puts(ProductAndVersion);
    else if (argument == "--help")
        std::fputs(Usage, stdout);
    else
        return false;
    return true;
}

} // namespace

int main(int argc, char** argv) {
    if (int status = 0; argc > 1 && RunWithoutWindow(argv[1], status))
        return status;
    IgnoreWriteSignals();
    LQtToolkit toolkit(argc, argv);
    std::setlocale(LC_NUMERIC,
                   "C"); // numbers are read and written with a point, whatever the user's language
    LQtSessionService service;
    if (service.HandOver(argc > 1 ? argv[1] : ""))
        return 0;
    InstallCrashReport();
    MainDialog window(toolkit, argc, argv, {.open = OpenCubebChannel, .findRate = FindCubebRate});
    service.Serve(window);
    window.Run();
    static_cast<void>(WaitForBackground(EndOfWorkMs)); // while there is still all that it uses
    return 0;
}
