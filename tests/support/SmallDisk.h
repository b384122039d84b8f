#pragma once

#include <QtGlobal>

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>

/// No file can grow beyond so many bytes while this lives, as on a disk that is full.
class SmallDisk {
public:
    explicit SmallDisk(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit{bytes, before_.rlim_max};
        EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
    }
    ~SmallDisk() { ::setrlimit(RLIMIT_FSIZE, &before_); }
    Q_DISABLE_COPY(SmallDisk)

private:
    rlimit before_{};
};
