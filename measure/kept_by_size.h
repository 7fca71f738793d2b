#pragma once

#include <cstddef>
#include <map>
#include <mutex>

/// What takes long to make, made once for each size and kept as long as this. Any thread.
template <class Value>
class KeptBySize {
public:
    explicit KeptBySize(Value (*makeValue)(std::size_t size)) : make(makeValue) {}

    const Value& Get(std::size_t size) {
        const std::scoped_lock lock(mutex);
        const auto found = values.find(size);
        return found != values.end() ? found->second : values.emplace(size, make(size)).first->second;
    }

private:
    Value (*make)(std::size_t size);
    std::mutex mutex;
    std::map<std::size_t, Value> values;
};
