#include "sys/user_data.h"

#include <QDir>
#include <QStandardPaths>

std::string GetUserDataFolder() {
    const QString folder =
        QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + "/Quenby Software/Sonvire";
    QDir().mkpath(folder);
    return folder.toStdString();
}
