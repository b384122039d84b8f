#pragma once

#include <unistd.h>

#include <utility>

/// An open file of the system's, closed with its owner.
class FileDescriptor {
public:
    FileDescriptor() = default;
    /// Takes over what open() and its like return; a negative number stands for none.
    explicit FileDescriptor(int opened) : number(opened) {}
    ~FileDescriptor() { reset(); }
    FileDescriptor(FileDescriptor &&other) noexcept : number(other.release()) {}
    FileDescriptor &operator=(FileDescriptor &&other) noexcept
    {
        reset(other.release());
        return *this;
    }

    bool isOpen() const { return number >= 0; }
    int get() const { return number; }
    /// Gives the file up without closing it.
    int release() { return std::exchange(number, -1); }
    void reset(int opened = -1)
    {
        const int old = std::exchange(number, opened);
        if (old >= 0) {
            ::close(old);
        }
    }

private:
    int number = -1;
};
