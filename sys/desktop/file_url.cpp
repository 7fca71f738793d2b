#include "sys/desktop/file_url.h"

#include <QUrl>

std::string MakeFileUrl(const std::string& path) {
    return QUrl::fromLocalFile(QString::fromStdString(path)).toEncoded().toStdString();
}
