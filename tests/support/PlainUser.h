#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

/// For its lifetime the process has no more rights than any user, though the tests run as root.
class PlainUser {
public:
    PlainUser() : before(::geteuid()) { EXPECT_TRUE(before != 0 || ::seteuid(65534) == 0); }
    ~PlainUser() { EXPECT_EQ(::seteuid(before), 0); }
    PlainUser(const PlainUser &) = delete;
    PlainUser &operator=(const PlainUser &) = delete;

private:
    uid_t before;
};
