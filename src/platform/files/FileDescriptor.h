#pragma once

#include <unistd.h>

#include <utility>

/// An open file of the system's, closed with its owner.
class FileDescriptor {
public:
    FileDescriptor() = default;
    /// Takes over what open() and its like return; a negative number stands for none.
    explicit FileDescriptor(int number) : number_(number) {}
    ~FileDescriptor() { reset(); }
    FileDescriptor(FileDescriptor &&other) noexcept : number_(other.release()) {}
    FileDescriptor &operator=(FileDescriptor &&other) noexcept
    {
        reset(other.release());
        return *this;
    }

    bool isOpen() const { return number_ >= 0; }
    int get() const { return number_; }
    /// Gives the file up without closing it.
    int release() { return std::exchange(number_, -1); }
    void reset(int opened = -1)
    {
        const int old = std::exchange(number_, opened);
        if (old >= 0) {
            ::close(old);
        }
    }

private:
    int number_ = -1;
};
