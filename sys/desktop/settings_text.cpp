#include "sys/desktop/settings_text.h"

#include <algorithm>
#include <charconv>
#include <string_view>

namespace {

constexpr std::string_view Blanks = " \t\r";
/// What stands behind a backslash for what, as in C.
constexpr std::string_view EscapeLetters = "abfnrtv\"?'\\0", Escaped{"\a\b\f\n\r\t\v\"?'\\\0", 12};

std::string_view Trim(std::string_view text) {
    const std::size_t first = text.find_first_not_of(Blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(Blanks) - first + 1);
}

/// Reads hexadecimal digits off the front, at most so many; -1 where there are none.
int TakeHex(std::string_view& text, std::size_t most) {
    unsigned int number = 0;
    const auto [end, error] =
        std::from_chars(text.data(), text.data() + std::min(most, text.size()), number, 16);
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return error == std::errc() ? static_cast<int>(number) : -1;
}

std::string ToHex(unsigned char byte) {
    constexpr std::string_view Digits = "0123456789ABCDEF";
    return {Digits[byte / 16], Digits[byte % 16]};
}

void AddUtf8(std::string& text, unsigned int code) {
    const auto tail = [&](unsigned int shift) { text += static_cast<char>(0x80 | (code >> shift & 0x3F)); };
    if (code < 0x80) {
        text += static_cast<char>(code);
    } else if (code < 0x800) {
        text += static_cast<char>(0xC0 | code >> 6);
        tail(0);
    } else if (code < 0x10000) {
        text += static_cast<char>(0xE0 | code >> 12);
        tail(6);
        tail(0);
    } else {
        text += static_cast<char>(0xF0 | (code >> 18 & 7));
        tail(12);
        tail(6);
        tail(0);
    }
}

/// Letters, digits and "_-." stand for themselves, "%20" for a blank, a backslash for a slash.
std::string UnescapeName(std::string_view name) {
    std::string plain;
    while (!name.empty()) {
        const char letter = name.front();
        name.remove_prefix(1);
        const int code = letter == '%' ? TakeHex(name, 2) : -1;
        plain += code >= 0 ? static_cast<char>(code) : letter == '\\' ? '/' : letter;
    }
    return plain;
}

std::string EscapeName(const std::string& name) {
    std::string escaped;
    for (const char letter : name) {
        const bool plain = (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') ||
                           (letter >= '0' && letter <= '9') || letter == '_' || letter == '-' ||
                           letter == '.';
        if (plain)
            escaped += letter;
        else
            escaped += letter == '/' ? "\\" : "%" + ToHex(static_cast<unsigned char>(letter));
    }
    return escaped;
}

/// What follows a backslash, taken off the front. Numbers are UTF-16, and may come in pairs.
void TakeEscaped(std::string_view& text, std::string& plain) {
    if (text.empty())
        return;
    const std::size_t letter = EscapeLetters.find(text.front());
    const bool number = text.front() == 'x';
    text.remove_prefix(1);
    if (letter != std::string_view::npos)
        plain += Escaped[letter];
    if (!number)
        return;
    auto code = static_cast<unsigned int>(std::max(0, TakeHex(text, 4)));
    if (code >= 0xD800 && code < 0xDC00 && text.starts_with("\\x")) {
        text.remove_prefix(2);
        code = 0x10000 + ((code & 0x3FF) << 10 | (static_cast<unsigned int>(TakeHex(text, 4)) & 0x3FF));
    }
    AddUtf8(plain, code);
}

/// Blanks at either end and what comes behind a semicolon don't count, but in quotes.
std::string UnescapeText(std::string_view text) {
    std::string plain;
    std::size_t solid = 0; // its length without the blanks at the end
    bool quoted = false;
    for (text = Trim(text); !text.empty() && (quoted || text.front() != ';');) {
        const char letter = text.front();
        text.remove_prefix(1);
        if (letter == '\\')
            TakeEscaped(text, plain);
        else if (letter == '"')
            quoted = !quoted;
        else
            plain += letter;
        if (quoted || Blanks.find(letter) == std::string_view::npos)
            solid = plain.size();
    }
    plain.resize(solid);
    return plain;
}

std::string EscapeText(const std::string& plain) {
    std::string escaped;
    bool afterNumber = false; // whose digits must not go on
    for (const char letter : plain) {
        const std::size_t place =
            letter == '?' || letter == '\'' ? std::string_view::npos : Escaped.find(letter);
        const auto byte = static_cast<unsigned char>(letter);
        const bool isHex = std::string_view("0123456789abcdefABCDEF").find(letter) != std::string_view::npos;
        const bool numbered = (place == std::string_view::npos && byte < 0x20) || (afterNumber && isHex);
        if (numbered)
            escaped += "\\x" + ToHex(byte);
        else if (place != std::string_view::npos)
            escaped += {'\\', EscapeLetters[place]};
        else
            escaped += letter;
        afterNumber = numbered || letter == '\0';
    }
    const bool bare =
        plain.find_first_of(";,=") == std::string::npos && !plain.starts_with(' ') && !plain.ends_with(' ');
    return bare ? escaped : '"' + escaped + '"';
}

/// Texts that begin with "@" have it twice, as it marks what is no text.
std::string ToStored(const std::string& value) {
    return EscapeText(value.starts_with('@') ? "@" + value : value);
}

std::string FromStored(std::string_view stored) {
    std::string value = UnescapeText(stored);
    if (value.starts_with("@@"))
        return value.substr(1);
    for (const std::string_view mark : {"@String(", "@ByteArray("})
        if (value.starts_with(mark) && value.ends_with(')'))
            return value.substr(mark.size(), value.size() - mark.size() - 1);
    return value.starts_with('@') && value.ends_with(')') ? std::string() : value;
}

} // namespace

struct LSettingsText::Place {
    std::size_t line = 0, equals = 0;
    bool found = false;
    std::size_t endOfSection = 0; ///< the line behind its last one; 0 where there is no such section
};

LSettingsText::LSettingsText(const std::string& content) {
    constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF"; // as some editors write it
    std::size_t start = 0;
    while (content.compare(start, ByteOrderMark.size(), ByteOrderMark) == 0)
        start += ByteOrderMark.size();
    while (start < content.size()) {
        const std::size_t end = std::min(content.find('\n', start), content.size());
        lines.push_back(content.substr(start, end - start));
        start = end + 1;
    }
}

LSettingsText::Place LSettingsText::Locate(const std::string& section, const std::string& key) const {
    Place place;
    bool inside = false;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const std::string_view line = Trim(lines[i]);
        const std::size_t equals = lines[i].find('=');
        if (line.starts_with('['))
            inside = UnescapeName(Trim(line.substr(1, line.find(']') - 1))) == section;
        else if (inside && equals != std::string::npos && !line.starts_with(';') &&
                 UnescapeName(Trim(std::string_view(lines[i]).substr(0, equals))) == key)
            place = {i, equals, true, 0};
        if (inside && !line.empty())
            place.endOfSection = i + 1;
    }
    return place;
}

std::optional<std::string> LSettingsText::Find(const std::string& section, const std::string& key) const {
    const Place place = Locate(section, key);
    if (!place.found)
        return {};
    return FromStored(std::string_view(lines[place.line]).substr(place.equals + 1));
}

void LSettingsText::Set(const std::string& section, const std::string& key, const std::string& value) {
    const Place place = Locate(section, key);
    const std::string line = EscapeName(key) + "=" + ToStored(value);
    if (place.found) {
        lines[place.line] = line;
        return;
    }
    if (place.endOfSection > 0) {
        lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(place.endOfSection), line);
        return;
    }
    if (!lines.empty())
        lines.emplace_back();
    lines.push_back("[" + EscapeName(section) + "]");
    lines.push_back(line);
}

void LSettingsText::Remove(const std::string& section, const std::string& key) {
    for (Place place = Locate(section, key); place.found; place = Locate(section, key))
        lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(place.line));
}

std::string LSettingsText::GetContent() const {
    std::string content;
    for (const std::string& line : lines)
        content += line + "\n";
    return content;
}
