#include "gui/qt/qt_main_window.h"

#include "gui/qt/qt_child.h"
#include "gui/qt/qt_drop.h"
#include "gui/qt/qt_keys.h"
#include "gui/qt/qt_menu.h"
#include "gui/qt/qt_status_widget.h"
#include "gui/qt/qt_text.h"
#include "gui/qt/qt_tool_bar.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMenuBar>
#include <QScreen>
#include <QStatusBar>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace {

constexpr QSize SmallestWindow(400, 240); // where its fields are still of use
constexpr int StatusMargin = 6;
constexpr int FrameWaitMs = 100;

/// What windows may take of the screen that the frame is on, or of the first one.
QRect FindRoom(const QRect& frame) {
    for (const QScreen* screen : QGuiApplication::screens())
        if (screen->availableGeometry().intersects(frame))
            return screen->availableGeometry();
    return QGuiApplication::primaryScreen()->availableGeometry();
}

/// Shifted, and made smaller where it has to be, so that all of it can be seen.
QRect FitInto(const QRect& room, const QRect& frame) {
    QRect fitted(frame.topLeft(), frame.size().expandedTo(SmallestWindow).boundedTo(room.size()));
    fitted.moveRight(std::min(fitted.right(), room.right()));
    fitted.moveBottom(std::min(fitted.bottom(), room.bottom()));
    fitted.moveLeft(std::max(fitted.left(), room.left()));
    fitted.moveTop(std::max(fitted.top(), room.top()));
    return fitted;
}

} // namespace

LQtMainWindow::LQtMainWindow(LWindowEvents& windowEvents)
    : events(windowEvents),
      content(MakeChild<QWidget>(static_cast<QWidget*>(this))),
      fields(MakeChild<LQtStatusFields>(static_cast<QWidget*>(statusBar()))),
      passing(MakeChild<LQtPassingLine>(static_cast<QWidget*>(statusBar()), fields)),
      controls(std::make_unique<LQtControls>(content, 1.0, windowEvents)) {
    setCentralWidget(content);
    setMinimumSize(SmallestWindow);
    setAcceptDrops(true);
    setContextMenuPolicy(Qt::NoContextMenu);
    statusBar()->addPermanentWidget(fields);
    statusBar()->setSizeGripEnabled(false);
    statusBar()->setContentsMargins(StatusMargin, 0, StatusMargin, 0);
    content->installEventFilter(this);
    qApp->installEventFilter(this);
}

LQtMainWindow::~LQtMainWindow() {
    qApp->removeEventFilter(this);
}

void LQtMainWindow::ShowPassing(const std::string& text) {
    passing->Show(ToQt(text));
}

void LQtMainWindow::SetGeometry(const LWindowGeometry& geometry) {
    const QRect wanted(geometry.x, geometry.y, geometry.width, geometry.height);
    normalFrame = FitInto(FindRoom(wanted), wanted);
    move(normalFrame.topLeft()); // of the frame, unlike the size
    resize(normalFrame.size());
    setWindowState(geometry.maximized ? Qt::WindowMaximized : Qt::WindowNoState);
}

/// How wide the frame is, is known only some time after the desktop has put one around the window, if it
/// does; a maximized window has another one, and may have lost its state before that.
void LQtMainWindow::FollowFrame() {
    if (!isVisible() || (windowState() & ~Qt::WindowActive) != Qt::WindowNoState)
        return;
    const QSize margins = frameGeometry().size() - size();
    const bool fillsScreen = frameGeometry().contains(screen()->availableGeometry());
    if (margins.isNull() || (fillsScreen && !fittedMargins.isNull())) // or is being maximized
        return;
    if (margins != std::exchange(fittedMargins, margins)) {
        const QRect fitted = normalFrame; // which the next line may change
        resize(fitted.size() - margins);
        move(fitted.topLeft());
    } else {
        normalFrame = frameGeometry();
    }
}

LWindowGeometry LQtMainWindow::GetGeometry() const {
    const QRect frame = isMaximized() ? normalFrame : frameGeometry();
    return {.x = frame.x(),
            .y = frame.y(),
            .width = frame.width(),
            .height = frame.height(),
            .maximized = isMaximized()};
}

void LQtMainWindow::Show() {
    show();
    activateWindow();
}

void LQtMainWindow::Raise() {
    setWindowState(windowState() & ~Qt::WindowMinimized);
    raise();
    activateWindow();
}

std::unique_ptr<LMenuPeer> LQtMainWindow::CreateMenuBar() {
    menuBar()->setAccessibleName("Menu bar");
    return std::make_unique<LQtMenu>(*menuBar(), events);
}

std::unique_ptr<LToolBarPeer> LQtMainWindow::CreateToolBar(LToolBarEvents& toolBarEvents) {
    QToolBar* bar = MakeToolBar(this);
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    bar->setAccessibleName("Main tool bar");
    addToolBar(bar);
    return std::make_unique<LQtToolBar>(*bar, toolBarEvents);
}

std::unique_ptr<LToolBarPeer> LQtMainWindow::CreateSmallToolBar(int control, LToolBarEvents& toolBarEvents) {
    QToolBar* bar = MakeToolBar(content);
    controls->Register(control, bar);
    return std::make_unique<LQtToolBar>(*bar, toolBarEvents);
}

void LQtMainWindow::AddStatusItem(const LStatusItem& item) {
    const bool takesTheRest = item.kind == LStatusKind::Text && !std::exchange(hasStatusText, true);
    QWidget* widget = MakeStatusWidget(item, takesTheRest ? static_cast<QWidget*>(statusBar()) : fields);
    if (takesTheRest) {
        widget->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
        statusBar()->addWidget(widget, 1);
    } else {
        fields->Add(widget, item.kind);
    }
    controls->Register(item.id, widget);
}

bool LQtMainWindow::event(QEvent* event) {
    const bool handled = QMainWindow::event(event);
    switch (event->type()) {
    case QEvent::WindowStateChange: // and another frame, of which no event tells
        QTimer::singleShot(FrameWaitMs, this, [this] { FollowFrame(); });
        [[fallthrough]];
    case QEvent::Show:
    case QEvent::Move:
    case QEvent::Resize:
        FollowFrame();
        break;
    default:
        break;
    }
    return handled;
}

bool LQtMainWindow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize && watched == content)
        events.Resized(content->width(), content->height());
    if (keyRepeats.Replaces(*watched, *event))
        return true;
    if (event->type() == QEvent::KeyPress && TakesKey(*watched, static_cast<QKeyEvent&>(*event)))
        return true;
    return QMainWindow::eventFilter(watched, event);
}

bool LQtMainWindow::TakesKey(const QObject& watched, const QKeyEvent& event) {
    const auto* widget = qobject_cast<const QWidget*>(&watched);
    const bool inMenuBar = qobject_cast<const QMenuBar*>(widget);
    if (!widget || inMenuBar || widget->window() != this || QApplication::activeModalWidget() ||
        QApplication::activePopupWidget())
        return false;
    return OfferKey(events, *widget, event);
}

void LQtMainWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    events.CloseAsked();
}

void LQtMainWindow::dragEnterEvent(QDragEnterEvent* event) {
    event->setAccepted(!LocalFilesIn(*event->mimeData()).empty());
}

void LQtMainWindow::dropEvent(QDropEvent* event) {
    event->acceptProposedAction();
    // Once the drag is over: what follows may open a dialog, and the other program waits for the drop to end.
    QTimer::singleShot(0, this,
                       [this, paths = LocalFilesIn(*event->mimeData())] { events.FilesDropped(paths); });
}
