#include "gui/qt/qt_toolkit.h"

#include "gui/qt/qt_dialog.h"
#include "gui/qt/qt_file_chooser.h"
#include "gui/qt/qt_main_window.h"
#include "gui/qt/qt_spoken_slider.h"
#include "gui/qt/qt_spoken_text.h"
#include "gui/qt/qt_text.h"
#include "sys/queued_notify.h"

#include <QDesktopServices>
#include <QIcon>
#include <QUrl>

#include <cstdio>
#include <cstdlib>
#include <string_view>

/// What the desktop knows the program, and its icon, by.
static constexpr const char* ProgramName = "com.quenbysoftware.Sonvire";

/// The pictures are linked into a library, where nothing else would bring them along.
static void BringPictures() {
    Q_INIT_RESOURCE(icons);
    Q_INIT_RESOURCE(program_icon);
}

/// Looking through the themes and drawing takes longer than the rest of this file: the window comes first.
static void ShowProgramIcon() {
    QApplication::setWindowIcon(
        QIcon::fromTheme(ProgramName, QIcon(QString(":/program/%1.svg").arg(ProgramName))));
}

/// Qt would go on to abort.
static void ExplainNoDisplay(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    if (type == QtFatalMsg) {
        std::fputs("sonvire: there is no display to open a window on; sonvire-cli does without one\n",
                   stderr);
        std::_Exit(LQtToolkit::NoDisplayStatus);
    }
    const bool leadsUpToIt = context.category && std::string_view(context.category).starts_with("qt.qpa");
    if (!leadsUpToIt)
        std::fprintf(stderr, "%s\n", qPrintable(text));
}

LQtToolkit::DisplayCheck::DisplayCheck() {
    qInstallMessageHandler(ExplainNoDisplay);
}

void LQtToolkit::DisplayCheck::End() const {
    qInstallMessageHandler(nullptr);
}

LQtToolkit::LQtToolkit(int& argc, char** argv)
    : application(argc, argv),
      posted(LThreadQueuedNotify::GetDescriptor(), QSocketNotifier::Read) {
    displayCheck.End();
    QObject::connect(&posted, &QSocketNotifier::activated, [] { LThreadQueuedNotify::DeliverNext(); });
    BringPictures();
    LQtSpokenText::Install();
    LQtSpokenSlider::Install();
    QApplication::setQuitOnLastWindowClosed(false); // the main window says when
    QApplication::setDesktopFileName(ProgramName);
    LQtToolkit::Post(ShowProgramIcon);
}

std::unique_ptr<LMainWindowPeer> LQtToolkit::CreateMainWindow(LWindowEvents& events) {
    return std::make_unique<LQtMainWindow>(events);
}

std::unique_ptr<LDialogPeer> LQtToolkit::CreateDialog(const LDialogLayout& layout, LWindowEvents& events) {
    return std::make_unique<LQtDialog>(layout, events);
}

std::optional<LChosenFile> LQtToolkit::ChooseFile(const LFileChooser& chooser, LFilePurpose purpose) {
    return ShowFileChooser(chooser, purpose);
}

bool LQtToolkit::OpenUrl(const std::string& url) {
    return QDesktopServices::openUrl(QUrl(ToQt(url)));
}

void LQtToolkit::Run() {
    QApplication::exec();
}

void LQtToolkit::Quit() {
    QApplication::quit();
}

void LQtToolkit::DispatchPending() {
    QApplication::processEvents();
}

void LQtToolkit::Post(std::function<void()> call) {
    QMetaObject::invokeMethod(&application, std::move(call), Qt::QueuedConnection);
}
