#include "Shared/FrameGrabber.h"

#include "Shared/NumberText.h"
#include "Shared/PathParts.h"
#include "platform/files/FileSystem.h"
#include "platform/files/PathText.h"

#include <QBuffer>
#include <QDir>
#include <QImageReader>

#include <unistd.h>

#include <system_error>
#include <tuple>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

using Look = Result<struct stat, std::error_code>;

bool isSameFile(const Look &before, const Look &after)
{
    const auto identity = [](const struct stat &status) {
        return std::tuple(status.st_dev, status.st_ino, status.st_size, status.st_mtim.tv_sec, status.st_mtim.tv_nsec);
    };
    if (!before || !after) {
        return before.has_value() == after.has_value();
    }
    return identity(*before) == identity(*after);
}

/// Whether the movie has been replaced by a pipe or a device: the tool would wait for it at every tile. A file that is
/// missing is left to the tool, which fails at once.
bool wouldBlock(const QString &moviePath)
{
    const auto status = FileSystem::status(moviePath);
    return status && !S_ISREG(status->st_mode);
}

/// Why the tool has given no picture, as far as that can be seen from outside.
QString problemOf(const QString &moviePath, const TaskWrapper &task, const QString &tool)
{
    if (!task.brokenLimit().isEmpty()) {
        return u"ffmpeg was stopped, it "_s + task.brokenLimit();
    }
    if (!task.hasRun()) {
        return u"ffmpeg cannot be run, expected at "_s + PathText::forDisplay(tool);
    }
    const auto access = FileSystem::checkAccess(moviePath, R_OK);
    return access ? QString() : inWords(access.error());
}

/// Passes on each new second of a tool's run, and keeps how it ended.
class Run final : public TaskController {
public:
    explicit Run(const FrameGrabber::Waiting &waiting) : waiting_(waiting) {}

    void processRuns(std::chrono::milliseconds time) override
    {
        const auto seconds = std::chrono::floor<std::chrono::seconds>(time);
        if (waiting_ && seconds > std::exchange(told_, std::max(told_, seconds))) {
            waiting_(seconds);
        }
    }
    void launcherDidTerminatedWithCode(int exitStatus) override { hasFailed_ = exitStatus != 0; }
    bool hasFailed() const { return hasFailed_; }

private:
    const FrameGrabber::Waiting &waiting_;
    std::chrono::seconds told_{1}; // the first second is nothing to tell of
    bool hasFailed_ = false;
};

} // namespace

FrameGrabber::FrameGrabber(QString tool, const QString &temporaryFolder, TaskLimits limits) :
    tool_(std::move(tool)),
    pictureFile_(GlobalFun::appendingPathComponent(temporaryFolder, u"x.jpg"_s)),
    limits_(limits)
{
    QImageReader::setAllocationLimit(0); // a frame of an 8K movie needs more than the 128 MB that Qt allows
}

GrabbedFrame FrameGrabber::createThumbnail(const QString &moviePath, double seconds, const CancelFlag &cancelled)
{
    return decode(grab({moviePath, seconds, {}}, cancelled, {}));
}

GrabbedFile FrameGrabber::grab(const FrameWish &wish, const CancelFlag &cancelled, const Waiting &waiting)
{
    const std::lock_guard lock(oneAtATime_);
    if (cancelled) {
        return {};
    }
    const auto picture = [this] { return FileSystem::contentsOf(pictureFile_).value_or(QByteArray()); };
    if (wouldBlock(wish.moviePath)) {
        return {picture(), false, u"is not a regular file"_s, false};
    }

    const auto before = FileSystem::status(pictureFile_);
    Run run(waiting);
    QStringList arguments{tool_,         u"-ss"_s, GlobalFun::fixedText(wish.seconds, 2), u"-i"_s, wish.moviePath,
                          u"-vframes"_s, u"1"_s};
    if (!wish.filters.isEmpty()) {
        arguments += {u"-vf"_s, wish.filters};
    }
    TaskWrapper task(&run, arguments + QStringList{u"-y"_s, pictureFile_}, limits_);
    task.startProcess();
    if (!task.waitUntilTaskExit(cancelled) || cancelled) {
        return {};
    }
    const bool isWritten = !isSameFile(before, FileSystem::status(pictureFile_)) && task.brokenLimit().isEmpty();
    QString problem = problemOf(wish.moviePath, task, tool_);
    if (problem.isEmpty() && !wish.filters.isEmpty() && run.hasFailed()) {
        problem = u"ffmpeg failed, with -vf "_s + wish.filters;
    }
    return {picture(), isWritten, problem, task.hasHung()};
}

GrabbedFrame FrameGrabber::decode(GrabbedFile file)
{
    GrabbedFrame frame;
    QBuffer buffer(&file.bytes);
    frame.picture = QImageReader(&buffer).read();
    frame.isNew = file.isNew && !frame.picture.isNull();
    frame.problem = frame.isNew ? QString() : file.problem;
    frame.hasHung = file.hasHung;
    frame.seconds = frame.isNew ? file.seconds : std::nullopt;
    return frame;
}

QString FrameGrabber::toolPathBeside(const QString &executablePath)
{
    return QDir::cleanPath(executablePath + u"/../ffmpeg"_s);
}
