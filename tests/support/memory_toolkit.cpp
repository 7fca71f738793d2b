#include "support/memory_toolkit.h"

#include <utility>

namespace {

template <class T>
T TakeNext(std::deque<T>& scripts, T otherwise) {
    if (scripts.empty())
        return otherwise;
    T next = std::move(scripts.front());
    scripts.pop_front();
    return next;
}

LMessageAnswer LeastOf(LMessageButtons buttons) {
    if (buttons == LMessageButtons::Ok)
        return LMessageAnswer::Ok;
    return buttons == LMessageButtons::YesNo ? LMessageAnswer::No : LMessageAnswer::Cancel;
}

} // namespace

std::unique_ptr<LMainWindowPeer> MemoryToolkit::CreateMainWindow(LWindowEvents& events) {
    return std::make_unique<MemoryMainWindow>(events, mainWindow);
}

std::unique_ptr<LDialogPeer> MemoryToolkit::CreateDialog(const LDialogLayout& /*layout*/,
                                                         LWindowEvents& events) {
    auto dialog = std::make_unique<MemoryDialog>(events);
    dialog->script = TakeNext(dialogScripts, {});
    if (onDialog)
        onDialog(*dialog);
    return dialog;
}

std::unique_ptr<LMenuPeer> MemoryToolkit::CreatePopupMenu() {
    return MakeMemoryMenuPeer(popup, [this] { return popup.Pick(TakeNext(popupChoices, 0)); });
}

std::optional<LChosenFile> MemoryToolkit::ChooseFile(const LFileChooser& chooser, LFilePurpose /*purpose*/) {
    choosers.push_back(chooser);
    const LChosenFile chosen = TakeNext(chosenFiles, {});
    return chosen.path.empty() ? std::nullopt : std::optional(chosen);
}

bool MemoryToolkit::OpenUrl(const std::string& url) {
    urls.push_back(url);
    return hasBrowser;
}

void MemoryToolkit::Run() {
    DispatchPending();
    if (running)
        running();
    DispatchPending();
    if (!quit)
        mainWindow->CloseWindow();
}

void MemoryToolkit::DispatchPending() {
    if (whileDispatched)
        whileDispatched();
    while (const auto call = TakePosted())
        call();
}

void MemoryToolkit::Post(std::function<void()> call) {
    const std::scoped_lock lock(mutex);
    posted.push_back(std::move(call));
}

std::function<void()> MemoryToolkit::TakePosted() {
    const std::scoped_lock lock(mutex);
    return TakeNext(posted, {});
}

LMessageAnswer MemoryToolkit::Show(const std::string& title, const std::string& text,
                                   LMessageButtons buttons) {
    boxes.push_back(title + "|" + text);
    boxButtons.push_back(buttons);
    return TakeNext(answers, LeastOf(buttons));
}
