#include "sys/desktop/command.h"

#include <QProcess>
#include <QStandardPaths>

std::optional<int> RunCommand(const std::string& program, const std::vector<std::string>& arguments) {
    const QString path = QStandardPaths::findExecutable(QString::fromStdString(program));
    if (path.isEmpty())
        return std::nullopt;
    QStringList list;
    for (const std::string& argument : arguments)
        list << QString::fromStdString(argument);
    return QProcess::execute(path, list);
}
