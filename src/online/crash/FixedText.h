#pragma once

#include <algorithm>
#include <array>
#include <charconv>
#include <concepts>
#include <string_view>

/// A line of text in an array of its own, for signal handlers: nothing is allocated, what does not fit is cut off, and
/// all but printable ASCII shows as '?'. A value.
class FixedText {
public:
    FixedText &append(std::string_view text)
    {
        for (const char letter : text.substr(0, letters.size() - length)) {
            letters[length++] = letter < ' ' || letter > '~' ? '?' : letter;
        }
        return *this;
    }
    /// With zeros before it up to the number of digits.
    FixedText &appendNumber(std::unsigned_integral auto value, int base = 10, std::size_t digits = 1)
    {
        std::array<char, 64> buffer{};
        const char *end = std::to_chars(buffer.begin(), buffer.end(), value, base).ptr;
        const std::string_view number(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
        for (std::size_t missing = std::max(digits, number.size()) - number.size(); missing > 0; --missing) {
            append("0");
        }
        return append(number);
    }
    std::string_view view() const { return {letters.data(), length}; }

private:
    std::array<char, 512> letters{};
    std::size_t length = 0;
};
