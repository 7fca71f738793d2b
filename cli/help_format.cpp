#include "cli/help_format.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <sstream>

namespace {

constexpr std::size_t Columns = 80;
constexpr std::size_t CommandColumn = 14, OptionColumn = 24; ///< where descriptions begin

/// Breaks a text into lines that fit behind `column`.
std::string Wrap(const std::string& text, std::size_t column) {
    std::istringstream words(text);
    std::string lines, line;
    for (std::string word; words >> word; line += (line.empty() ? "" : " ") + word) {
        if (line.size() + 1 + word.size() < Columns - column)
            continue;
        lines += line + "\n";
        line.clear();
    }
    return lines + line;
}

class WrappedHelp : public CLI::Formatter {
public:
    explicit WrappedHelp(std::size_t width) : descriptionColumn(width) {
        column_width(width);
        label("TEXT", "");
    }

    std::string make_option_desc(const CLI::Option* option) const override {
        return Wrap(option->get_description(), descriptionColumn);
    }
    std::string make_description(const CLI::App* command) const override {
        return Wrap(CLI::Formatter::make_description(command), 0) + "\n";
    }

private:
    std::size_t descriptionColumn;
};

} // namespace

void FormatHelp(CLI::App& program) {
    program.formatter(std::make_shared<WrappedHelp>(CommandColumn));
    for (CLI::App* command : program.get_subcommands({}))
        command->formatter(std::make_shared<WrappedHelp>(OptionColumn));
}
