#include "gui/qt/qt_file_chooser.h"

#include "gui/qt/qt_active_window.h"
#include "gui/qt/qt_text.h"

#include <QFileDialog>

namespace {

QStringList FiltersOf(const LFileChooser& chooser) {
    QStringList filters;
    for (const LFileFilter& filter : chooser.filters) {
        QStringList patterns;
        for (const std::string& pattern : SplitPatterns(filter))
            patterns.append(ToQt(pattern));
        filters.append(ToQt(filter.description) + " (" + patterns.join(' ') + ")");
    }
    return filters;
}

} // namespace

std::optional<LChosenFile> ShowFileChooser(const LFileChooser& chooser, LFilePurpose purpose) {
    const bool save = purpose == LFilePurpose::Save;
    const QStringList filters = FiltersOf(chooser);
    QFileDialog dialog(FindActiveWindow(), ToQt(chooser.title), ToQt(chooser.folder));
    dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.setNameFilters(filters);
    if (!chooser.name.empty())
        dialog.selectFile(ToQt(chooser.name));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    return LChosenFile{.path = FromQt(dialog.selectedFiles().front()),
                       .filter = static_cast<int>(filters.indexOf(dialog.selectedNameFilter()))};
}
