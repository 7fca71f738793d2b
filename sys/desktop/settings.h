#pragma once

#include "sys/failure.h"

#include <functional>
#include <string>

/// The user's remembered choices, each a text addressed by a section and a key ("settings", "autoplay").
/// Section names are case-sensitive, and one that ends in "/" is the same as one that doesn't.
///
/// Nothing is cached: every read goes to the store, and every write is on disk when the call returns, whole
/// or not at all, without losing what another program wrote under other keys. One thread only.

/// From here on `watcher` is called when a setting could not be written, the first time that happens; null
/// for nobody.
void LWatchSettings(std::function<void(const LFailure&)> watcher);

/// Texts of 260 bytes and more are not delivered: they read as empty.
inline constexpr int MaxSettingBytes = 259;

/// Sets `value` to the stored text; to `fallback`, with false, where nothing is stored.
bool LUserSettingGetString(const std::string& section, const std::string& key, const std::string& fallback,
                           std::string& value);
/// The stored text alone, or `fallback`.
std::string LUserSettingGetText(const std::string& section, const std::string& key,
                                const std::string& fallback = {});
void LUserSettingSetString(const std::string& section, const std::string& key, const std::string& value);
void LUserSettingDeleteItem(const std::string& section, const std::string& key);

/// Typed forms, for int and bool. Nothing stored, and an empty text, read as `fallback`. An integer is what
/// the text begins with ("abc" is 0); a boolean is false where the text begins with "0".
template <class Value>
Value LUserSettingGet(const std::string& section, const std::string& key, Value fallback);
template <class Value>
void LUserSettingSet(const std::string& section, const std::string& key, Value value);
