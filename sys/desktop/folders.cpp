#include "sys/desktop/folders.h"

#include <QDir>
#include <QStandardPaths>
#include <QUrl>

#include <filesystem>

std::string GetProgramPath() {
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error);
}

std::string GetSharedDataFolder() {
    return std::filesystem::path(GetProgramPath()).parent_path().parent_path() / "share";
}

std::string GetUserDataFolder() {
    std::string folder = GetUserSharedDataFolder() + "/Quenby Software/Sonvire";
    QDir().mkpath(QString::fromStdString(folder));
    return folder;
}

std::string GetUserSharedDataFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation).toStdString();
}

std::string MakeFileUrl(const std::string& path) {
    return QUrl::fromLocalFile(QString::fromStdString(path)).toEncoded().toStdString();
}
