#pragma once

#include <array>
#include <cstddef>
#include <string_view>

/// Writes text to an open file without allocating or locking, as a signal handler must. The file stays its owner's.
class SignalSafeWriter {
public:
    explicit SignalSafeWriter(int openFile) : file(openFile) {}
    ~SignalSafeWriter() { flush(); }
    SignalSafeWriter(const SignalSafeWriter &) = delete;
    SignalSafeWriter &operator=(const SignalSafeWriter &) = delete;

    SignalSafeWriter &append(std::string_view text);
    /// Writes what is in the buffer; false when anything has been lost so far.
    bool flush();

private:
    int file;
    bool complete = true;
    std::array<char, 4096> buffer{};
    std::size_t length = 0;
};
