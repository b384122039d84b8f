#include "Shared/ChildProcess.h"

#include "platform/files/FileSystem.h"
#include "platform/files/PathText.h"

#include <fcntl.h>
#include <sys/syscall.h>
#include <sys/wait.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <iterator>
#include <poll.h>
#include <spawn.h>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// What the child does with its files before it becomes the program: the input empty, both outputs to one pipe.
class FileActions {
public:
    explicit FileActions(int outputs)
    {
        ::posix_spawn_file_actions_init(&actions);
        ::posix_spawn_file_actions_adddup2(&actions, outputs, STDOUT_FILENO);
        ::posix_spawn_file_actions_adddup2(&actions, outputs, STDERR_FILENO);
        ::posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    }
    ~FileActions() { ::posix_spawn_file_actions_destroy(&actions); }
    FileActions(const FileActions &) = delete;
    FileActions &operator=(const FileActions &) = delete;

    posix_spawn_file_actions_t actions = {};
};

/// What kind of process the child is: the first of a group of its own, so that it can be stopped with all its children,
/// and with the signals as a new program expects them.
class Attributes {
public:
    Attributes()
    {
        sigset_t signals = {};
        ::posix_spawnattr_init(&attributes);
        ::posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
        ::posix_spawnattr_setpgroup(&attributes, 0);
        ::sigemptyset(&signals);
        ::posix_spawnattr_setsigmask(&attributes, &signals);
        ::sigaddset(&signals, SIGPIPE);
        ::sigaddset(&signals, SIGXFSZ);
        ::posix_spawnattr_setsigdefault(&attributes, &signals);
    }
    ~Attributes() { ::posix_spawnattr_destroy(&attributes); }
    Attributes(const Attributes &) = delete;
    Attributes &operator=(const Attributes &) = delete;

    posix_spawnattr_t attributes = {};
};

/// Runs a program; its process, or 0 when it cannot be run.
pid_t spawn(const QStringList &arguments, int outputs)
{
    std::vector<QByteArray> bytes;
    std::vector<char *> list;
    std::ranges::transform(arguments, std::back_inserter(bytes), &PathText::toBytes);
    std::ranges::transform(bytes, std::back_inserter(list), [](QByteArray &argument) { return argument.data(); });
    list.push_back(nullptr);

    pid_t process = 0;
    const FileActions files(outputs);
    const Attributes kind;
    const int error = ::posix_spawn(&process, list.front(), &files.actions, &kind.attributes, list.data(), environ);
    return error == 0 ? process : 0;
}

} // namespace

ChildProcess::ChildProcess(const QStringList &arguments)
{
    std::array<int, 2> ends = {-1, -1};
    if (arguments.isEmpty() || ::pipe2(ends.data(), O_CLOEXEC) != 0) {
        return;
    }
    output_.reset(ends[0]);
    const FileDescriptor outputs(ends[1]);
    ::fcntl(output_.get(), F_SETFL, O_NONBLOCK);
    process_ = spawn(arguments, outputs.get());
    ran_ = process_ > 0;
    // Not every C library has a function for this that links from C++. Where the call fails, wait() ends later.
    if (process_ > 0) {
        end_.reset(static_cast<int>(::syscall(SYS_pidfd_open, process_, 0)));
    }
}

ChildProcess::~ChildProcess()
{
    ignoreOutput();
    sendSignal(SIGKILL);
    while (isRunning()) {
        wait(std::chrono::seconds(1));
    }
}

void ChildProcess::wait(std::chrono::milliseconds time)
{
    if (!isRunning()) {
        return;
    }
    std::array<pollfd, 2> files = {{{end_.get(), POLLIN, 0}, {hearsOutput_ ? output_.get() : -1, POLLIN, 0}}};
    ::poll(files.data(), files.size(), static_cast<int>(time.count()));
    takeEnd();
}

/// Looks whether the program has ended, and then kills what it has started. That happens before the dead process is
/// collected: until then its number cannot belong to another group.
void ChildProcess::takeEnd()
{
    siginfo_t info = {};
    const int failed = ::waitid(P_PID, static_cast<id_t>(process_), &info, WEXITED | WNOHANG | WNOWAIT);
    if (failed == 0 && info.si_pid == 0) {
        return;
    }
    sendSignal(SIGKILL);
    // Fails where SIGCHLD is ignored: the system then collects dead processes itself.
    if (::waitid(P_PID, static_cast<id_t>(process_), &info, WEXITED) == 0) {
        status_ = info.si_status;
    }
    process_ = 0;
}

std::optional<QByteArray> ChildProcess::readOutput()
{
    static constexpr qsizetype pipeSize = 65536;
    if (!output_.isOpen() || !hearsOutput_) {
        return std::nullopt;
    }
    QByteArray chunk(pipeSize, Qt::Uninitialized);
    const ssize_t size = ::read(output_.get(), chunk.data(), static_cast<std::size_t>(chunk.size()));
    if (size < 0) {
        return std::nullopt;
    }
    if (size == 0) {
        output_.reset();
    }
    chunk.truncate(size);
    return chunk;
}

void ChildProcess::sendSignal(int number) const
{
    if (isRunning()) {
        ::kill(-process_, number);
    }
}

std::int64_t ChildProcess::processorTicks() const
{
    static constexpr qsizetype userTime = 11; // of the fields behind the name, which stands in parentheses
    const auto state = FileSystem::contentsOf(u"/proc/%1/stat"_s.arg(process_));
    if (!state) {
        return 0;
    }
    const QList<QByteArray> fields = state->mid(state->lastIndexOf(')') + 2).split(' ');
    return fields.value(userTime).toLongLong() + fields.value(userTime + 1).toLongLong();
}
