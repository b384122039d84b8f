#pragma once

#include <QtGlobal>

#include <unistd.h>

/// The tests may run as root: while this lives, the permissions of files apply to them all the same.
class WithoutPrivileges {
public:
    WithoutPrivileges() { become(::getuid() == 0 ? 65534 : ::getuid()); }
    ~WithoutPrivileges() { become(::getuid()); }
    Q_DISABLE_COPY(WithoutPrivileges)

private:
    static void become(uid_t user)
    {
        if (::seteuid(user) != 0) {
            ::_exit(1);
        }
    }
};
