#pragma once

#include <unistd.h>

/// Lets root, as which the tests may run, feel the permissions of files for as long as this lives.
class WithoutPrivileges {
public:
    WithoutPrivileges()
    {
        if (::seteuid(::getuid() == 0 ? 65534 : ::getuid()) != 0) {
            ::_exit(1);
        }
    }
    ~WithoutPrivileges()
    {
        if (::seteuid(::getuid()) != 0) {
            ::_exit(1);
        }
    }
    WithoutPrivileges(const WithoutPrivileges &) = delete;
    WithoutPrivileges &operator=(const WithoutPrivileges &) = delete;
};
