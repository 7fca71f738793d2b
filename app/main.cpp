#include "app/crash_offer.h"
#include "app/installer.h"
#include "app/main_dialog.h"
#include "gui/qt/qt_session_service.h"
#include "gui/qt/qt_toolkit.h"

#include <clocale>
#include <string_view>

int main(int argc, char** argv) {
    if (argc > 1 && std::string_view(argv[1]) == "-installer")
        return InstallerMain();
    LQtToolkit toolkit(argc, argv);
    std::setlocale(LC_NUMERIC,
                   "C"); // numbers are read and written with a point, whatever the user's language
    LQtSessionService service;
    if (service.HandOver(argc > 1 ? argv[1] : ""))
        return 0;
    InstallCrashReport();
    MainDialog window(toolkit, argc, argv);
    service.Serve(window);
    window.Run();
    return 0;
}
