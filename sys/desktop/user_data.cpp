#include "sys/desktop/user_data.h"

#include <QDir>
#include <QStandardPaths>

std::string GetUserDataFolder() {
    std::string folder = GetUserSharedDataFolder() + "/Quenby Software/Sonvire";
    QDir().mkpath(QString::fromStdString(folder));
    return folder;
}

std::string GetUserSharedDataFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation).toStdString();
}
