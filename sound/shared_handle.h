#pragma once

#include <utility>

/// A handle that shares an object with a plain reference count (`refCount`) and is never empty: where there
/// is nothing to hold, the one `Null` of the program stands in, which is neither counted nor ever written to.
/// Handles to one object must not be copied or released from two threads at once; empty ones may.
// NOLINTBEGIN(clang-analyzer-cplusplus.NewDelete*, bugprone-unhandled-self-assignment): the analyser follows
// neither the count nor the swap
template <class Object, class Null>
class LSharedHandle {
public:
    LSharedHandle() : held(&Nothing()) {}
    /// Takes a newly created object.
    explicit LSharedHandle(Object* created) : held(created) { ++held->refCount; }
    LSharedHandle(const LSharedHandle& other) : held(other.held) {
        if (IsCounted())
            ++held->refCount;
    }
    ~LSharedHandle() {
        if (IsCounted() && --held->refCount == 0)
            delete held;
    }

    LSharedHandle& operator=(const LSharedHandle& other) {
        LSharedHandle copy(
            other); // raises its count first, so that assigning a handle to itself keeps the object
        std::swap(held, copy.held);
        return *this;
    }

    /// Lets go of the object.
    void Close() { *this = LSharedHandle(); }

    Object* operator->() const { return held; }
    Object& operator*() const { return *held; }

private:
    static Object& Nothing() {
        static Object& nothing = *new Null; // never deleted: handles may outlive every static object
        return nothing;
    }
    bool IsCounted() const { return held != &Nothing(); }

    Object* held;
};
// NOLINTEND(clang-analyzer-cplusplus.NewDelete*, bugprone-unhandled-self-assignment)
