#pragma once

#include <optional>
#include <string>
#include <vector>

/// The text of a settings file, in the format of Qt's QSettings: sections in brackets, a key and its value on
/// each line. What isn't changed stays as it is, byte for byte. Nothing in it is an error: a line that means
/// nothing is passed over, and of several with one key the last one counts.
class LSettingsText {
public:
    explicit LSettingsText(const std::string& content);

    /// Commas are a part of the value, whether they stand in quotes or not.
    std::optional<std::string> Find(const std::string& section, const std::string& key) const;
    void Set(const std::string& section, const std::string& key, const std::string& value);
    void Remove(const std::string& section, const std::string& key);
    std::string GetContent() const;

private:
    struct Place;
    Place Locate(const std::string& section, const std::string& key) const;

    std::vector<std::string> lines;
};
