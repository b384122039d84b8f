#include "platform/files/NewFile.h"

#include "support/ScratchFolder.h"
#include "support/WithoutPrivileges.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <thread>
#include <vector>

using namespace Qt::StringLiterals;

static const QByteArray picture = QByteArray("\xFF\xD8\0picture", 10).repeated(20000);
static bool hasFlags = true; // as a disk in the network may not
static bool hasLinks = true; // as a memory stick does not

// In place of the C library's. NOLINTBEGIN(readability-inconsistent-declaration-parameter-name)
int renameat2(int from, const char *name, int to, const char *newName, unsigned flags) noexcept
{
    return hasFlags ? static_cast<int>(::syscall(SYS_renameat2, from, name, to, newName, flags)) : (errno = EINVAL, -1);
}
int linkat(int from, const char *name, int to, const char *newName, int flags) noexcept
{
    return hasLinks ? static_cast<int>(::syscall(SYS_linkat, from, name, to, newName, flags)) : (errno = EPERM, -1);
}
int fsync(int file)
{
    return hasLinks ? static_cast<int>(::syscall(SYS_fsync, file)) : (errno = EINVAL, -1);
}
// NOLINTEND(readability-inconsistent-declaration-parameter-name)

static std::error_code errorOf(const Result<void, std::error_code> &written)
{
    return written ? std::error_code() : written.error();
}

TEST(NewFile, RefusesWithoutTrace)
{
    const ScratchFolder folder;
    folder.write("taken", "mine");
    folder.link("nowhere", "dangling");
    folder.makeFolder("folder");
    const QStringList before = folder.names();
    const std::vector<std::pair<QString, std::errc>> cases{
        {folder.path("taken"), std::errc::file_exists},
        {folder.path("dangling"), std::errc::file_exists},
        {folder.path("folder"), std::errc::file_exists},
        {folder.path("missing/x"), std::errc::no_such_file_or_directory},
        {folder.path("folder/"), std::errc::invalid_argument},
        {folder.path("cut") + QChar(0) + u"short", std::errc::invalid_argument},
        {folder.path(QByteArray(256, 'n')), std::errc::filename_too_long},
        {QString(), std::errc::invalid_argument},
    };
    for (const auto &[path, error] : cases) {
        EXPECT_EQ(errorOf(writeNewFile(path, picture)), error) << qPrintable(path);
    }
    folder.setMode(0555);
    {
        const WithoutPrivileges user;
        EXPECT_EQ(errorOf(writeNewFile(folder.path("new"), picture)), std::errc::permission_denied);
    }
    EXPECT_EQ(folder.names(), before);
    EXPECT_EQ(folder.read("taken"), "mine");
}

TEST(NewFile, GivesANameToOneOfManyOnly)
{
    const ScratchFolder folder;
    for (int round = 0; round < 20; ++round) {
        const QByteArray name = QByteArray::number(round);
        std::array<std::error_code, 4> results;
        std::array<std::jthread, 4> writers;
        for (std::size_t i = 0; i < writers.size(); ++i) {
            writers.at(i) = std::jthread(
                [&, i] { results.at(i) = errorOf(writeNewFile(folder.path(name), QByteArray(99, char('0' + i)))); });
        }
        std::ranges::for_each(writers, &std::jthread::join);
        const auto winner = std::ranges::find(results, std::error_code{});
        ASSERT_NE(winner, results.end());
        EXPECT_EQ(folder.read(name), QByteArray(99, char('0' + (winner - results.begin()))));
        EXPECT_EQ(std::ranges::count(results, std::make_error_code(std::errc::file_exists)), 3);
    }
    EXPECT_EQ(folder.names().size(), 20);
}

TEST(NewFile, OthersClearUpWhatAKilledProcessHasLeft)
{
    const ScratchFolder folder;
    CancelFlag cancelled = false;
    NewFile alive(folder.path("alive"), cancelled);
    folder.write(".tessarine-0123456789ab", "left");
    folder.write(".tessarine-notes", "mine");
    folder.link(".tessarine-notes", ".tessarine-link456789ab");
    NewFile::removeLeftovers(folder.path());
    EXPECT_EQ(folder.names().size(), 3);
    alive.write("a");
    EXPECT_TRUE(alive.publishAs(folder.path("alive")));
    EXPECT_EQ(folder.names(), (QStringList{u".tessarine-link456789ab"_s, u".tessarine-notes"_s, u"alive"_s}));
    NewFile stopped(folder.path("stopped"), cancelled);
    cancelled = true;
    EXPECT_EQ(stopped.write("a"), -1);
    EXPECT_EQ(errorOf(stopped.publishAs(folder.path("stopped"))), std::errc::operation_canceled);
}

TEST(NewFile, ManagesWithoutTheFileSystemsHelpAndHasThePermissionsOfAnyNewFile)
{
    const mode_t before = ::umask(026);
    hasFlags = false;
    for (const bool links : {true, false}) {
        hasLinks = links;
        const ScratchFolder folder;
        folder.write("taken", "mine");
        EXPECT_TRUE(writeNewFile(folder.path("new"), picture));
        EXPECT_EQ(errorOf(writeNewFile(folder.path("taken"), picture)), std::errc::file_exists);
        EXPECT_EQ(folder.names(), (QStringList{u"new"_s, u"taken"_s}));
        EXPECT_EQ(folder.read("new"), picture);
        EXPECT_EQ(std::filesystem::status(folder.bytes("new").toStdString()).permissions(),
                  std::filesystem::perms(0640));
        EXPECT_EQ(folder.read("taken"), "mine");
    }
    hasFlags = hasLinks = true;
    ::umask(before);
}
