#include "sys/desktop/settings.h"

#include "sys/desktop/settings_text.h"
#include "sys/file.h"
#include "sys/parse.h"
#include "sys/path.h"

#include <QStandardPaths>
#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>

namespace {

constexpr std::size_t MaxKeyBytes = 520;
constexpr unsigned int LockMs = 1000, ImpatientMs = 50;

/// Called at the first failure, and then no more.
std::function<void(const LFailure&)> failureWatcher;

/// Where Qt's own settings of this name are.
std::string StorePath() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation).toStdString() +
           "/Quenby Software/Sonvire.conf";
}

LFailure ReadStore(std::string& content) {
    const std::string path = StorePath();
    LSharedReadFile file(path.c_str());
    if (!file.IsOpen())
        return file.GetFailure().GetError() == ENOENT ? LFailure() : file.GetFailure();
    content.resize(static_cast<std::size_t>(file.GetSize()));
    return file.Read(content.data(), content.size()) == content.size() ? LFailure()
                                                                       : "the file can't be read";
}

/// A new store is nobody else's business; one that is there keeps its permissions.
LFailure SaveStore(const std::string& content) {
    using std::filesystem::perms;
    const std::string path = StorePath();
    const bool isNew = !FileExists(path);
    LFailure failure =
        LFile::SaveFile(path.c_str(), content.data(), static_cast<unsigned int>(content.size()));
    std::error_code ignored;
    if (isNew)
        std::filesystem::permissions(path, perms::owner_read | perms::owner_write, ignored);
    return failure;
}

/// Keeps other programs from writing. Who holds it for longer is written past, and waited for less the next
/// time.
class WriteLock {
public:
    WriteLock() : lock((StorePath() + ".writer").c_str(), patienceMs) {
        patienceMs = lock.IsHeld() ? LockMs : ImpatientMs;
    }

private:
    static inline unsigned int patienceMs = LockMs;
    LExclusiveLock lock;
};

/// Whole or not at all: where the store can't be read, it is not written either.
LFailure ChangeStore(const std::function<void(LSettingsText&)>& change) {
    const WriteLock lock;
    std::string content;
    if (LFailure unreadable = ReadStore(content))
        return unreadable;
    LSettingsText text(content);
    change(text);
    const std::string changed = text.GetContent();
    if (changed == content)
        return {};
    return SaveStore(changed);
}

void Change(const std::function<void(LSettingsText&)>& change) {
    std::error_code ignored;
    std::filesystem::create_directories(GetFolder(StorePath()), ignored);
    const LFailure failure = ChangeStore(change);
    if (failure && failureWatcher)
        std::exchange(failureWatcher, nullptr)(failure);
}

std::string SectionName(const std::string& section) {
    return section.substr(0, section.size() - (section.ends_with('/') ? 1 : 0));
}

std::string KeyName(const std::string& key) {
    return key.substr(0, MaxKeyBytes);
}

} // namespace

void LWatchSettings(std::function<void(const LFailure&)> watcher) {
    failureWatcher = std::move(watcher);
}

bool LUserSettingGetString(const std::string& section, const std::string& key, const std::string& fallback,
                           std::string& value) {
    std::string content;
    static_cast<void>(ReadStore(content)); // what can't be read has nothing stored
    const std::optional<std::string> stored = LSettingsText(content).Find(SectionName(section), KeyName(key));
    value = stored.value_or(fallback);
    if (stored && value.size() > MaxSettingBytes)
        value.clear();
    return stored.has_value();
}

std::string LUserSettingGetText(const std::string& section, const std::string& key,
                                const std::string& fallback) {
    std::string value;
    LUserSettingGetString(section, key, fallback, value);
    return value;
}

void LUserSettingSetString(const std::string& section, const std::string& key, const std::string& value) {
    Change([&](LSettingsText& text) { text.Set(SectionName(section), KeyName(key), value); });
}

void LUserSettingDeleteItem(const std::string& section, const std::string& key) {
    Change([&](LSettingsText& text) { text.Remove(SectionName(section), KeyName(key)); });
}

template <>
int LUserSettingGet<int>(const std::string& section, const std::string& key, int fallback) {
    std::string text;
    LUserSettingGetString(section, key, "", text);
    return text.empty() ? fallback : ParseLeadingInt(text.c_str());
}

template <>
bool LUserSettingGet<bool>(const std::string& section, const std::string& key, bool fallback) {
    std::string text;
    LUserSettingGetString(section, key, "", text);
    return text.empty() ? fallback : text.front() != '0';
}

template <>
void LUserSettingSet<int>(const std::string& section, const std::string& key, int value) {
    LUserSettingSetString(section, key, std::to_string(value));
}

template <>
void LUserSettingSet<bool>(const std::string& section, const std::string& key, bool value) {
    LUserSettingSetString(section, key, value ? "1" : "0");
}
