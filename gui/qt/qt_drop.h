#pragma once

#include "gui/qt/qt_text.h"

#include <QMimeData>
#include <QUrl>

#include <vector>

/// The paths of the files of this machine that are dragged; empty where none is.
inline std::vector<std::string> LocalFilesIn(const QMimeData& data) {
    std::vector<std::string> paths;
    for (const QUrl& url : data.urls())
        if (url.isLocalFile())
            paths.push_back(FromQt(url.toLocalFile()));
    return paths;
}
