#pragma once

#include "platform/PathText.h"
#include "support/WithoutPrivileges.h"

#include <QFile>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

/// A folder of the test's own that other users may enter. Qt makes it but cannot remove files of any name.
class TestFolder {
public:
    TestFolder()
    {
        folder.setAutoRemove(false);
        setMode(0777);
    }
    ~TestFolder() { std::filesystem::remove_all(path().toStdString()); }
    TestFolder(const TestFolder &) = delete;
    TestFolder &operator=(const TestFolder &) = delete;

    QByteArray path() const { return QFile::encodeName(folder.path()); }
    QByteArray path(const QByteArray &name) const { return path() + '/' + name; }
    QString file(const QString &name) const { return folder.filePath(name); }
    void setMode(mode_t mode) const { EXPECT_EQ(::chmod(path().constData(), mode), 0); }
    /// Of all that is in it, hidden files too, sorted.
    QStringList names() const
    {
        QStringList names;
        for (const auto &entry : std::filesystem::directory_iterator(path().toStdString()))
            names << PathText::fromBytes(entry.path().filename().native());
        names.sort();
        return names;
    }

    QByteArray read(const QString &name) const
    {
        QFile in(file(name));
        return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray("cannot be read");
    }
    void write(const QString &name, const QByteArray &contents) const
    {
        QFile out(file(name));
        ASSERT_TRUE(out.open(QIODevice::WriteOnly));
        ASSERT_EQ(out.write(contents), contents.size());
    }

private:
    QTemporaryDir folder;
};

/// A disk of 64 KiB over a test folder.
class SmallDisk {
public:
    explicit SmallDisk(const TestFolder &folder) :
        path(folder.path()), mounted(::mount("none", path.constData(), "tmpfs", 0, "size=64k") == 0)
    {
    }
    ~SmallDisk() { EXPECT_TRUE(!mounted || ::umount(path.constData()) == 0); }
    SmallDisk(const SmallDisk &) = delete;
    SmallDisk &operator=(const SmallDisk &) = delete;

    bool isMounted() const { return mounted; }

private:
    QByteArray path;
    bool mounted;
};
