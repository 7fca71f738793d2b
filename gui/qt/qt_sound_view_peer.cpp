#include "gui/qt/qt_sound_view_peer.h"

#include "gui/qt/qt_menu.h"
#include "gui/qt/qt_sound_view.h"
#include "gui/qt/qt_text.h"

#include <QClipboard>
#include <QGuiApplication>

#include <cmath>

void LQtSoundViewPeer::SetVisible(bool visible) {
    widget.setVisible(visible);
}

void LQtSoundViewPeer::Show(LShownSoundPtr sound) {
    widget.Change([&](LSoundView& view) { view.Show(std::move(sound)); });
}

void LQtSoundViewPeer::SetLook(const LSoundLook& look) {
    widget.Change([&](LSoundView& view) { view.SetLook(look); });
}

void LQtSoundViewPeer::ResetZoom() {
    widget.Change([](LSoundView& view) { view.ResetZoom(); });
}

int LQtSoundViewPeer::GetPlotsHeight() const {
    return static_cast<int>(std::ceil(widget.GetPlotsHeight() / unit));
}

int LQtSoundViewPeer::GetFiguresHeight() const {
    return static_cast<int>(std::ceil(widget.GetFiguresHeight() / unit));
}

void LQtSoundViewPeer::CopyPicture() {
    QGuiApplication::clipboard()->setPixmap(widget.grab());
}

void LQtSoundViewPeer::CopyCsv() {
    QGuiApplication::clipboard()->setText(ToQt(widget.GetView().WriteCsv()));
}

std::unique_ptr<LMenuPeer> LQtSoundViewPeer::CreatePopupMenu() {
    return std::make_unique<LQtMenu>(widget.GetMenuPlace());
}
