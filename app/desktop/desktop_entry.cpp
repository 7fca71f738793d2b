#include "app/desktop/desktop_entry.h"

#include <sstream>
#include <string_view>

namespace {

/// As the value of any key.
std::string Escape(const std::string& text) {
    std::string escaped;
    for (const char c : text) {
        switch (c) {
        case '\\':
            escaped += "\\\\";
            break;
        case '\n':
            escaped += "\\n";
            break;
        case '\t':
            escaped += "\\t";
            break;
        case '\r':
            escaped += "\\r";
            break;
        default:
            escaped += c;
        }
    }
    return escaped;
}

/// As an argument of a command line, which is escaped once more as a value.
std::string Quote(const std::string& argument) {
    std::string quoted = "\"";
    for (const char c : argument) {
        if (std::string_view("\"`$\\").find(c) != std::string_view::npos)
            quoted += '\\';
        if (c == '%')
            quoted += '%';
        quoted += c;
    }
    return quoted + '"';
}

} // namespace

std::string WithProgram(const std::string& entry, const std::string& program) {
    std::string changed;
    std::istringstream lines(entry);
    for (std::string line; std::getline(lines, line); changed += line + '\n') {
        if (line.starts_with("Exec="))
            line = "Exec=" + Escape(Quote(program)) + " %f";
        else if (line.starts_with("TryExec="))
            line = "TryExec=" + Escape(program);
    }
    return changed;
}
