#pragma once

#include <utility>

/// A handle that shares an object with a plain reference count (`refCount`) and is never empty: where there
/// is nothing to hold, `Null` stands in. Handles to one object must not be copied or released from two
/// threads at once.
// NOLINTBEGIN(clang-analyzer-cplusplus.NewDelete*, bugprone-unhandled-self-assignment): the analyser follows
// neither the count nor the swap
template <class Object, class Null>
class LSharedHandle {
public:
    LSharedHandle() : LSharedHandle(new Null) {}
    /// Takes a newly created object.
    explicit LSharedHandle(Object* created) : held(created) { ++held->refCount; }
    LSharedHandle(const LSharedHandle& other) : LSharedHandle(other.held) {}
    ~LSharedHandle() {
        if (--held->refCount == 0)
            delete held;
    }

    LSharedHandle& operator=(const LSharedHandle& other) {
        LSharedHandle copy(
            other); // raises its count first, so that assigning a handle to itself keeps the object
        std::swap(held, copy.held);
        return *this;
    }

    /// Lets go of the object; a null object stands in from now on.
    void Close() { *this = LSharedHandle(); }

    Object* operator->() const { return held; }
    Object& operator*() const { return *held; }

private:
    Object* held;
};
// NOLINTEND(clang-analyzer-cplusplus.NewDelete*, bugprone-unhandled-self-assignment)
