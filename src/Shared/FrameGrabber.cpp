#include "Shared/FrameGrabber.h"

#include "Shared/NumberText.h"
#include "Shared/PathParts.h"
#include "platform/files/FileSystem.h"

#include <QBuffer>
#include <QDir>
#include <QImageReader>

#include <tuple>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

bool isSameFile(const std::optional<struct stat> &before, const std::optional<struct stat> &after)
{
    const auto identity = [](const struct stat &status) {
        return std::tuple(status.st_dev, status.st_ino, status.st_size, status.st_mtim.tv_sec, status.st_mtim.tv_nsec);
    };
    if (!before || !after) {
        return before.has_value() == after.has_value();
    }
    return identity(*before) == identity(*after);
}

/// A pipe or a device that stands where the movie was: the tool would wait for it, at every tile anew. What is gone is
/// left to the tool, which says so at once.
bool wouldBlock(const QString &moviePath)
{
    const auto status = FileSystem::status(moviePath);
    return status && !S_ISREG(status->st_mode);
}

QImage loadPicture(const QString &path)
{
    QByteArray bytes = FileSystem::contentsOf(path).value_or(QByteArray());
    QBuffer buffer(&bytes);
    return QImageReader(&buffer).read();
}

} // namespace

FrameGrabber::FrameGrabber(QString toolPath, const QString &temporaryFolder, TaskLimits patience) :
    tool(std::move(toolPath)),
    pictureFile(GlobalFun::appendingPathComponent(temporaryFolder, u"x.jpg"_s)),
    limits(patience)
{
    QImageReader::setAllocationLimit(0); // a frame of an 8K movie needs more than the 128 MB that Qt allows
}

GrabbedFrame FrameGrabber::createThumbnail(const QString &moviePath, double seconds, const CancelFlag &cancelled)
{
    const std::lock_guard lock(oneAtATime);
    if (cancelled) {
        return {};
    }
    if (wouldBlock(moviePath)) {
        return {loadPicture(pictureFile), false};
    }

    const auto before = FileSystem::status(pictureFile);
    TaskWrapper task(nullptr,
                     {tool, u"-ss"_s, GlobalFun::fixedText(seconds, 2), u"-i"_s, moviePath, u"-vframes"_s, u"1"_s,
                      u"-y"_s, pictureFile},
                     limits);
    task.startProcess();
    if (!task.waitUntilTaskExit(cancelled) || cancelled) {
        return {};
    }
    const bool isNew = !isSameFile(before, FileSystem::status(pictureFile));
    return {loadPicture(pictureFile), isNew};
}

QString FrameGrabber::toolPathBeside(const QString &executablePath)
{
    return QDir::cleanPath(executablePath + u"/../ffmpeg"_s);
}
