#pragma once

#include <QByteArray>

#include <gtest/gtest.h>
#include <sys/mount.h>

/// A disk of a few KiB over a folder, for as long as this lives. Only root can have one, and not everywhere.
class SmallDisk {
public:
    SmallDisk(const QByteArray &folder, int kibibytes) : path(folder)
    {
        const QByteArray options = "size=" + QByteArray::number(kibibytes) + 'k';
        mounted = ::mount("none", path.constData(), "tmpfs", 0, options.constData()) == 0;
    }
    ~SmallDisk() { EXPECT_TRUE(!mounted || ::umount(path.constData()) == 0); }
    SmallDisk(const SmallDisk &) = delete;
    SmallDisk &operator=(const SmallDisk &) = delete;

    bool isMounted() const { return mounted; }

private:
    QByteArray path;
    bool mounted = false;
};
