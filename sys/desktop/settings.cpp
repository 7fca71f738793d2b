#include "sys/desktop/settings.h"

#include "sys/file.h"
#include "sys/parse.h"

#include <QSettings>
#include <QString>
#include <cstdio>
#include <filesystem>
#include <system_error>

namespace {

constexpr std::size_t MaxKeyBytes = 520;

/// The store as it is on disk now, without what the system administrator may have laid underneath.
class Store : public QSettings {
public:
    Store() : QSettings(QSettings::NativeFormat, QSettings::UserScope, "Quenby Software", "Sonvire") {
        setFallbacksEnabled(false);
    }
};

/// Keeps other programs from writing. The store's own lock file is one that a killed program may leave
/// behind, and others would wait half a minute for; whoever holds this lock, which goes with its process, can
/// remove it.
class WriteLock {
public:
    explicit WriteLock(const Store& store) : lock(CreateBeside(store.fileName().toStdString()).c_str()) {
        if (lock.IsHeld())
            std::remove((store.fileName() + ".lock").toUtf8().constData());
    }

private:
    /// The lock's own file, in a folder that there is from now on.
    static std::string CreateBeside(const std::string& path) {
        std::error_code ignored;
        std::filesystem::create_directories(std::filesystem::path(path).parent_path(), ignored);
        return path + ".writer";
    }

    LExclusiveLock lock;
};

QString StoreKey(const std::string& section, const std::string& key) {
    const bool closed = !section.empty() && section.back() == '/';
    return QString::fromStdString((section + (closed ? "" : "/") + key).substr(0, MaxKeyBytes));
}

} // namespace

bool LUserSettingGetString(const std::string& section, const std::string& key, const std::string& fallback,
                           std::string& value) {
    Store store;
    const QVariant stored = store.value(StoreKey(section, key));
    if (!stored.isValid()) {
        value = fallback;
        return false;
    }
    value = stored.toString().toStdString();
    if (value.size() > MaxSettingBytes)
        value.clear();
    return true;
}

std::string LUserSettingGetText(const std::string& section, const std::string& key,
                                const std::string& fallback) {
    std::string value;
    LUserSettingGetString(section, key, fallback, value);
    return value;
}

void LUserSettingSetString(const std::string& section, const std::string& key, const std::string& value) {
    Store store;
    const WriteLock lock(store);
    store.setValue(StoreKey(section, key), QString::fromStdString(value));
    store.sync();
}

void LUserSettingDeleteItem(const std::string& section, const std::string& key) {
    Store store;
    const WriteLock lock(store);
    store.remove(StoreKey(section, key));
    store.sync();
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
