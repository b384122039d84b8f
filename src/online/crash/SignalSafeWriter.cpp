#include "online/crash/SignalSafeWriter.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

SignalSafeWriter &SignalSafeWriter::append(std::string_view text)
{
    while (!text.empty()) {
        if (length == buffer.size()) {
            flush();
        }
        const std::size_t taken = text.copy(buffer.data() + length, buffer.size() - length);
        length += taken;
        text.remove_prefix(taken);
    }
    return *this;
}

bool SignalSafeWriter::flush()
{
    std::string_view rest(buffer.data(), std::exchange(length, 0));
    while (!rest.empty() && complete) {
        const ssize_t written = ::write(file, rest.data(), rest.size());
        if (written >= 0) {
            rest.remove_prefix(static_cast<std::size_t>(written));
        } else {
            complete = errno == EINTR;
        }
    }
    return complete;
}
