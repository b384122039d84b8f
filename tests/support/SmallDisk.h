#pragma once

#include <QByteArray>

#include <gtest/gtest.h>
#include <sys/mount.h>

/// A disk of a few KiB over a folder, for as long as this lives. Only root can have one, and not everywhere.
class SmallDisk {
public:
    SmallDisk(const QByteArray &path, int kibibytes) : path_(path)
    {
        const QByteArray options = "size=" + QByteArray::number(kibibytes) + 'k';
        mounted_ = ::mount("none", path_.constData(), "tmpfs", 0, options.constData()) == 0;
    }
    ~SmallDisk() { EXPECT_TRUE(!mounted_ || ::umount(path_.constData()) == 0); }
    Q_DISABLE_COPY(SmallDisk)

    bool isMounted() const { return mounted_; }

private:
    QByteArray path_;
    bool mounted_ = false;
};
