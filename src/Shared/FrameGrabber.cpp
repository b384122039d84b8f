#include "Shared/FrameGrabber.h"

#include "Shared/FileStatus.h"
#include "Shared/NumberText.h"
#include "Shared/PathParts.h"

#include <QBuffer>
#include <QDir>
#include <QImageReader>

#include <tuple>
#include <utility>

namespace {

bool isSameFile(const std::optional<struct stat> &before, const std::optional<struct stat> &after)
{
    const auto identity = [](const struct stat &status) {
        return std::tuple(status.st_dev, status.st_ino, status.st_size, status.st_mtim.tv_sec, status.st_mtim.tv_nsec);
    };
    if (!before || !after)
        return before.has_value() == after.has_value();
    return identity(*before) == identity(*after);
}

QImage loadPicture(const QString &path)
{
    QByteArray bytes = GlobalFun::contentsOf(path).value_or(QByteArray());
    QBuffer buffer(&bytes);
    return QImageReader(&buffer).read();
}

} // namespace

FrameGrabber::FrameGrabber(QString toolPath, const QString &temporaryFolder, TaskLimits patience) :
    tool(std::move(toolPath)),
    pictureFile(GlobalFun::appendingPathComponent(temporaryFolder, QStringLiteral("x.jpg"))),
    limits(patience)
{
    QImageReader::setAllocationLimit(0); // a frame of an 8K movie needs more than the 128 MB that Qt allows
}

GrabbedFrame FrameGrabber::createThumbnail(const QString &moviePath, double seconds, const CancelFlag &cancelled)
{
    const std::lock_guard lock(oneAtATime);
    if (cancelled)
        return {};

    const auto before = GlobalFun::fileStatus(pictureFile);
    TaskWrapper task(nullptr,
                     {tool, QStringLiteral("-ss"), GlobalFun::fixedText(seconds, 2), QStringLiteral("-i"), moviePath,
                      QStringLiteral("-vframes"), QStringLiteral("1"), QStringLiteral("-y"), pictureFile},
                     limits);
    task.startProcess();
    if (!task.waitUntilTaskExit(cancelled) || cancelled)
        return {};
    const bool isNew = !isSameFile(before, GlobalFun::fileStatus(pictureFile));
    return {loadPicture(pictureFile), isNew};
}

QString FrameGrabber::toolPathBeside(const QString &executablePath)
{
    return QDir::cleanPath(executablePath + QStringLiteral("/../ffmpeg"));
}
