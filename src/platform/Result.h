#pragma once

#include <QString>

#include <cerrno>
#include <system_error>
#include <tl/expected.hpp>
#include <utility>

/// A value, or why there is none: in words for the user, or as the system's error where callers tell errors apart.
template<class Value, class Reason = QString>
using Result = tl::expected<Value, Reason>;

/// What is returned in place of the value.
inline tl::unexpected<QString> failure(QString reason)
{
    return tl::unexpected<QString>(std::move(reason));
}
inline tl::unexpected<std::error_code> failure(std::error_code reason)
{
    return tl::unexpected<std::error_code>(reason);
}

/// Why the system call just made has failed.
inline std::error_code lastError()
{
    return {errno, std::generic_category()};
}

/// The error in words for the user.
inline QString inWords(const std::error_code &error)
{
    return QString::fromStdString(error.message());
}
