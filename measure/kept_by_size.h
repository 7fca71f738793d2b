#pragma once

#include <cstddef>
#include <map>
#include <mutex>
#include <utility>

/// What takes long to make, made once for each size and kept to the end of the process, whatever still runs
/// then. Any thread; two that make the same at once don't wait for each other.
template <class Value>
class KeptBySize {
public:
    /// `make` is called as `make(size)`.
    template <class Maker>
    const Value& Get(std::size_t size, Maker make) {
        if (const Value* found = Find(size))
            return *found;
        Value made = make(size);
        const std::scoped_lock lock(mutex);
        return values.emplace(size, std::move(made)).first->second;
    }

private:
    const Value* Find(std::size_t size) {
        const std::scoped_lock lock(mutex);
        const auto found = values.find(size);
        return found != values.end() ? &found->second : nullptr;
    }

    std::mutex mutex;
    std::map<std::size_t, Value> values;
};
