#pragma once

#include "gui/qt/qt_text.h"
#include "gui/window_peer.h"

#include <QWidget>

/// The title of a window: its caption, behind the document that it shows.
class LQtTitle {
public:
    /// The window must outlive this.
    explicit LQtTitle(QWidget& titledWindow) : window(titledWindow) {}

    void SetCaption(const std::string& text) {
        caption = ToQt(text);
        Show();
    }
    void SetDocument(const LWindowDocument& document) {
        name = ToQt(document.name).replace("[*]", "[*][*]");
        Show();
        window.setWindowFilePath(ToQt(document.path));
        window.setWindowModified(document.changed);
    }

private:
    void Show() { window.setWindowTitle(name.isEmpty() ? caption : name + "[*] - " + caption); }

    QWidget& window;
    QString caption, name;
};
