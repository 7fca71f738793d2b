#include "gui/qt/qt_main_window.h"

#include "gui/qt/qt_child.h"
#include "gui/qt/qt_drop.h"
#include "gui/qt/qt_keys.h"
#include "gui/qt/qt_menu.h"
#include "gui/qt/qt_status_widget.h"
#include "gui/qt/qt_text.h"
#include "gui/qt/qt_tool_bar.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCloseEvent>
#include <QMenuBar>
#include <QScreen>
#include <QStatusBar>
#include <QTimer>

#include <utility>

namespace {

constexpr QSize SmallIcon(16, 16);
constexpr QSize LargeIcon(24, 24);
constexpr QSize SmallestFrame(100, 100);
constexpr int StatusMargin = 6;
constexpr int FrameTries = 20;
constexpr int FrameWaitMs = 25;

/// Null where the frame is on none.
const QScreen* FindScreen(const QRect& frame) {
    for (const QScreen* screen : QGuiApplication::screens())
        if (screen->availableGeometry().intersects(frame))
            return screen;
    return nullptr;
}

void SetLook(QToolBar& bar, const QSize& icon) {
    bar.setIconSize(icon);
    bar.setMovable(false);
    bar.setFloatable(false);
    bar.setContextMenuPolicy(Qt::PreventContextMenu);
}

} // namespace

LQtMainWindow::LQtMainWindow(LWindowEvents& windowEvents)
    : events(windowEvents),
      content(MakeChild<QWidget>(static_cast<QWidget*>(this))),
      fields(MakeChild<LQtStatusFields>(static_cast<QWidget*>(statusBar()))),
      controls(std::make_unique<LQtControls>(content, 1.0, windowEvents)) {
    setCentralWidget(content);
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

void LQtMainWindow::SetCaption(const std::string& caption) {
    setWindowTitle(ToQt(caption));
}

void LQtMainWindow::SetGeometry(const LWindowGeometry& geometry) {
    const QRect frame(geometry.x, geometry.y, geometry.width, geometry.height);
    const QScreen* screen = FindScreen(frame);
    if (screen)
        move(frame.topLeft()); // of the frame, unlike the size
    // What was stored on a larger screen would put its edges out of reach.
    frameToFit = frame.size()
                     .expandedTo(SmallestFrame)
                     .boundedTo((screen ? screen : QGuiApplication::primaryScreen())->availableSize());
    resize(frameToFit);
    setWindowState(geometry.maximized ? Qt::WindowMaximized : Qt::WindowNoState);
}

/// How large the frame is, is known only some time after the desktop has put one around the window, if it
/// does.
void LQtMainWindow::FitFrame(int triesLeft) {
    if (isMaximized() || triesLeft == 0)
        return;
    const QSize frame = frameGeometry().size() - size();
    if (!frame.isNull())
        resize(frameToFit - frame);
    else
        QTimer::singleShot(FrameWaitMs, this, [this, triesLeft] { FitFrame(triesLeft - 1); });
}

LWindowGeometry LQtMainWindow::GetGeometry() const {
    const QSize margins = frameGeometry().size() - size();
    const QPoint corner = frameGeometry().topLeft() - geometry().topLeft();
    const QRect inner = isMaximized() ? normalGeometry() : geometry();
    return {.x = inner.x() + corner.x(),
            .y = inner.y() + corner.y(),
            .width = inner.width() + margins.width(),
            .height = inner.height() + margins.height(),
            .maximized = isMaximized()};
}

void LQtMainWindow::Show() {
    show();
    activateWindow();
    FitFrame(FrameTries);
}

void LQtMainWindow::Raise() {
    setWindowState(windowState() & ~Qt::WindowMinimized);
    raise();
    activateWindow();
}

std::unique_ptr<LMenuPeer> LQtMainWindow::CreateMenuBar() {
    return std::make_unique<LQtMenu>(*menuBar(), events);
}

std::unique_ptr<LToolBarPeer> LQtMainWindow::CreateToolBar(LToolBarEvents& toolBarEvents) {
    auto* bar = MakeChild<QToolBar>(static_cast<QWidget*>(this));
    SetLook(*bar, LargeIcon);
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    addToolBar(bar);
    return std::make_unique<LQtToolBar>(*bar, toolBarEvents);
}

std::unique_ptr<LToolBarPeer> LQtMainWindow::CreateSmallToolBar(int control, LToolBarEvents& toolBarEvents) {
    auto* bar = MakeChild<QToolBar>(content);
    SetLook(*bar, SmallIcon);
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

bool LQtMainWindow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize && watched == content)
        events.Resized(content->width(), content->height());
    if (event->type() == QEvent::KeyPress && TakesKey(*watched, static_cast<QKeyEvent&>(*event)))
        return true;
    return QMainWindow::eventFilter(watched, event);
}

/// Before the control that has the keyboard: a list has a use of its own for most of the keys.
bool LQtMainWindow::TakesKey(const QObject& watched, const QKeyEvent& event) {
    const auto* widget = qobject_cast<const QWidget*>(&watched);
    const bool inMenuBar = qobject_cast<const QMenuBar*>(widget);
    if (!widget || inMenuBar || widget->window() != this || QApplication::activeModalWidget() ||
        QApplication::activePopupWidget())
        return false;
    const LKeyPress key = ToKeyPress(event);
    const bool free = widget == this || qobject_cast<const QAbstractItemView*>(widget);
    return (free || IsForTheWindow(key)) && events.KeyPressed(key);
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
