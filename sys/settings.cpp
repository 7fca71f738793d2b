#include "sys/settings.h"

#include "sys/parse.h"

#include <QSettings>
#include <QString>

namespace {

constexpr std::size_t MaxKeyBytes = 520;

/// The store as it is on disk now, without what the system administrator may have laid underneath.
class Store : public QSettings {
public:
    Store() : QSettings(QSettings::NativeFormat, QSettings::UserScope, "Quenby Software", "Sonvire") {
        setFallbacksEnabled(false);
    }
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

void LUserSettingSetString(const std::string& section, const std::string& key, const std::string& value) {
    Store store;
    store.setValue(StoreKey(section, key), QString::fromStdString(value));
    store.sync();
}

void LUserSettingDeleteItem(const std::string& section, const std::string& key) {
    Store store;
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
