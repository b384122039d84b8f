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

/// Passes on each new second of a tool's run.
class Seconds final : public TaskController {
public:
    explicit Seconds(const FrameGrabber::Waiting &waiting) : waiting_(waiting) {}

    void processRuns(std::chrono::milliseconds time) override
    {
        const auto seconds = std::chrono::floor<std::chrono::seconds>(time);
        if (waiting_ && seconds > std::exchange(told_, std::max(told_, seconds))) {
            waiting_(seconds);
        }
    }

private:
    const FrameGrabber::Waiting &waiting_;
    std::chrono::seconds told_{1}; // the first second is nothing to tell of
};

QImage loadPicture(const QString &path)
{
    QByteArray bytes = FileSystem::contentsOf(path).value_or(QByteArray());
    QBuffer buffer(&bytes);
    return QImageReader(&buffer).read();
}

} // namespace

FrameGrabber::FrameGrabber(QString tool, const QString &temporaryFolder, TaskLimits limits) :
    tool_(std::move(tool)),
    pictureFile_(GlobalFun::appendingPathComponent(temporaryFolder, u"x.jpg"_s)),
    limits_(limits)
{
    QImageReader::setAllocationLimit(0); // a frame of an 8K movie needs more than the 128 MB that Qt allows
}

GrabbedFrame FrameGrabber::createThumbnail(const QString &moviePath, double seconds, const CancelFlag &cancelled,
                                           const Waiting &waiting)
{
    const std::lock_guard lock(oneAtATime_);
    if (cancelled) {
        return {};
    }
    if (wouldBlock(moviePath)) {
        return {loadPicture(pictureFile_), false, u"is not a regular file"_s, false};
    }

    const auto before = FileSystem::status(pictureFile_);
    Seconds clock(waiting);
    TaskWrapper task(&clock,
                     {tool_, u"-ss"_s, GlobalFun::fixedText(seconds, 2), u"-i"_s, moviePath, u"-vframes"_s, u"1"_s,
                      u"-y"_s, pictureFile_},
                     limits_);
    task.startProcess();
    if (!task.waitUntilTaskExit(cancelled) || cancelled) {
        return {};
    }
    GrabbedFrame frame;
    frame.picture = loadPicture(pictureFile_);
    frame.isNew = !isSameFile(before, FileSystem::status(pictureFile_)) && task.brokenLimit().isEmpty();
    frame.isNew = frame.isNew && !frame.picture.isNull();
    frame.hasHung = task.hasHung();
    if (!frame.isNew) {
        frame.problem = problemOf(moviePath, task, tool_);
    }
    return frame;
}

QString FrameGrabber::toolPathBeside(const QString &executablePath)
{
    return QDir::cleanPath(executablePath + u"/../ffmpeg"_s);
}
