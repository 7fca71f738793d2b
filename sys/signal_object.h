#pragma once

/// What a thread waits on: an `LSignalObject` by reference, passed by value. Valid as long as the object is.
class LSignalObjectRef {
public:
    explicit LSignalObjectRef(int readEnd) : descriptor(readEnd) {}

    /// Waits until this object or `other` is set, for at most `milliseconds`. True where either is; false on
    /// time-out or when a signal handler ran. What is set stays set.
    bool WaitSignalDual(LSignalObjectRef other, unsigned int milliseconds) const;
    /// For an event loop: can be read from while the object is set, but only `Reset` reads from it.
    int GetDescriptor() const { return descriptor; }

private:
    int descriptor;
};

/// An event that a thread can wait on; set from when it is signalled until it is reset. Made of a pipe: where
/// the process has no descriptors left it is never set, and waits time out. Every operation may be called
/// from any thread and none but a wait blocks; signalling neither locks nor allocates.
class LSignalObject {
public:
    LSignalObject();
    ~LSignalObject();
    LSignalObject(const LSignalObject&) = delete;
    LSignalObject& operator=(const LSignalObject&) = delete;

    void Signal();
    void Reset();

    operator LSignalObjectRef() const {
        return LSignalObjectRef(ends[0]);
    } // NOLINT(google-explicit-constructor)

private:
    int ends[2] = {-1, -1}; ///< read, write
};
