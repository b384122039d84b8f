#pragma once

#include <QtGlobal>

#include <unistd.h>

/// Lets root, as which the tests may run, feel the permissions of files for as long as this lives.
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
