#pragma once

/// A handle that shares an object with a plain reference count (`refCount`) and is never empty: where there
/// is nothing to hold, `Null` stands in. Handles to one object must not be copied or released from two
/// threads at once.
template <class Object, class Null>
class LSharedHandle {
public:
    LSharedHandle() : LSharedHandle(new Null) {}
    /// Takes a newly created object.
    explicit LSharedHandle(Object* created) : held(created) { ++held->refCount; }
    LSharedHandle(const LSharedHandle& other) : LSharedHandle(other.held) {}
    ~LSharedHandle() { Release(); }

    LSharedHandle& operator=(const LSharedHandle& other) {
        ++other.held->refCount; // first, so that assigning a handle to itself keeps the object
        Release();
        held = other.held;
        return *this;
    }

    /// Lets go of the object; a null object stands in from now on.
    void Close() { *this = LSharedHandle(); }

    Object* operator->() const { return held; }
    Object& operator*() const { return *held; }

private:
    void Release() {
        if (--held->refCount == 0)
            delete held;
    }

    Object* held;
};
