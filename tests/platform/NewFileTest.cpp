#include "platform/NewFile.h"

#include "support/ScratchFolder.h"
#include "support/WithoutPrivileges.h"

#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstddef>
#include <linux/audit.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <thread>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

const QByteArray picture = QByteArray("\xFF\xD8\0picture", 10).repeated(20000);

/// Makes a system call fail in this process, for good, as a file system does that does not know it.
bool lose(unsigned systemCall, unsigned error)
{
    std::array filter{
        sock_filter BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        sock_filter BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, systemCall, 0, 1),
        sock_filter BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | error),
        sock_filter BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    };
    const sock_fprog program{.len = filter.size(), .filter = filter.data()};
    return ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 && ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
}

} // namespace

TEST(NewFile, WritesUnderAnyName)
{
    const ScratchFolder folder;
    for (const QByteArray &name : {QByteArray("a.jpg"), QByteArray(255, 'n'), QByteArray("-\xFF\xFE \n'\"%41"),
                                   QByteArray(".tessarine-"), QByteArray("🎬")}) {
        ASSERT_FALSE(writeNewFile(folder.path(name), picture)) << name.constData();
        EXPECT_EQ(folder.read(name), picture);
    }
    EXPECT_FALSE(writeNewFile(folder.path("empty"), {}));
    EXPECT_EQ(folder.names().size(), 6);
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
        {folder.path("taken/x"), std::errc::not_a_directory},
        {folder.path("missing/x"), std::errc::no_such_file_or_directory},
        {folder.path("folder/"), std::errc::invalid_argument},
        {folder.path("cut") + QChar(0) + u"short", std::errc::invalid_argument},
        {folder.path(QByteArray(256, 'n')), std::errc::filename_too_long},
        {QString(), std::errc::invalid_argument},
    };
    for (const auto &[path, error] : cases)
        EXPECT_EQ(writeNewFile(path, picture), error) << qPrintable(path);
    folder.setMode(0555);
    {
        const WithoutPrivileges user;
        EXPECT_EQ(writeNewFile(folder.path("new"), picture), std::errc::permission_denied);
    }
    EXPECT_EQ(folder.names(), before);
    EXPECT_EQ(folder.read("taken"), "mine");
}

TEST(NewFile, LeavesNothingWhenAWriteFailsHalfway)
{
    const ScratchFolder folder;
    rlimit before = {};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{.rlim_cur = 4096, .rlim_max = before.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    const std::error_code error = writeNewFile(folder.path("a.jpg"), picture);
    ::setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(error, std::errc::file_too_large);
    EXPECT_EQ(folder.names(), QStringList());
}

TEST(NewFile, HasThePermissionsOfAnyNewFile)
{
    const ScratchFolder folder;
    for (const auto &[mask, mode] : {std::pair<mode_t, mode_t>{022, 0644}, {077, 0600}}) {
        const QString path = folder.path(QByteArray::number(mask));
        const mode_t before = ::umask(mask);
        EXPECT_FALSE(writeNewFile(path, picture));
        ::umask(before);
        struct stat status = {};
        ASSERT_EQ(::stat(PathText::toBytes(path).constData(), &status), 0);
        EXPECT_EQ(status.st_mode & 07777U, mode);
    }
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
                [&, i] { results.at(i) = writeNewFile(folder.path(name), QByteArray(99, char('0' + i))); });
        }
        std::ranges::for_each(writers, &std::jthread::join);
        const auto winner = std::ranges::find(results, std::error_code{});
        ASSERT_NE(winner, results.end());
        EXPECT_EQ(folder.read(name), QByteArray(99, char('0' + (winner - results.begin()))));
        EXPECT_EQ(std::ranges::count(results, std::make_error_code(std::errc::file_exists)), 3);
    }
    EXPECT_EQ(folder.names().size(), 20);
}

TEST(NewFile, ManagesWithoutTheFileSystemsHelp)
{
    for (const bool hasLinks : {true, false}) { // a network disk, a memory stick
        const ScratchFolder folder;
        folder.write("taken", "mine");
        const pid_t child = ::fork();
        if (child == 0) {
            if (!lose(SYS_renameat2, EINVAL) || (!hasLinks && !lose(SYS_linkat, EPERM)))
                ::_exit(77);
            const bool written = !writeNewFile(folder.path("new"), picture);
            const bool refused = writeNewFile(folder.path("taken"), picture) == std::errc::file_exists;
            ::_exit(written && refused ? 0 : 1);
        }
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFEXITED(status));
        if (WEXITSTATUS(status) == 77)
            GTEST_SKIP() << "filtering system calls is refused here";
        EXPECT_EQ(WEXITSTATUS(status), 0) << hasLinks;
        EXPECT_EQ(folder.names(), (QStringList{u"new"_s, u"taken"_s}));
        EXPECT_EQ(folder.read("new"), picture);
        EXPECT_EQ(folder.read("taken"), "mine");
    }
}
