#include "render/MetadataText.h"

#include "Shared/FileHelper.h"
#include "Shared/NumberText.h"
#include "Shared/PathParts.h"
#include "Shared/TimeFormat.h"
#include "media/VXMediaInfoItem.h"
#include "platform/files/PathText.h"

#include <QDateTime>

#include <array>

namespace {

QString fileName(const VXMediaInfoItem &movie)
{
    // A line break in a name must not look like another line of facts.
    return PathText::forDisplay(GlobalFun::lastPathComponent(movie.filePath));
}

QString fileSize(const VXMediaInfoItem &movie)
{
    const auto bytes = static_cast<double>(FileHelper::getFileSizeWithPath(movie.filePath));
    return GlobalFun::fixedText(bytes / 1000.0 / 1000.0, 1) + u" MB";
}

QString resolution(const VXMediaInfoItem &movie)
{
    return QString::number(movie.pixWidth) + u" * " + QString::number(movie.pixHeight);
}

QString duration(const VXMediaInfoItem &movie)
{
    return GlobalFun::getTimeStringBySecond(movie.duration);
}

QString creationDate(const VXMediaInfoItem &movie)
{
    const std::optional<QDateTime> date = FileHelper::creationDate(movie.filePath);
    return date ? date->toUTC().toString(u"yyyy-MM-dd HH:mm:ss +0000") : QString();
}

QString framesPerSecond(const VXMediaInfoItem &movie)
{
    return GlobalFun::fixedText(movie.videoFps, 0);
}

QString codecName(const VXMediaInfoItem &movie)
{
    return movie.strVideoCodecName;
}

QString bitrate(const VXMediaInfoItem &movie)
{
    return GlobalFun::fixedText(movie.videoBitrate / 1000.0, 1) + u"Kbps";
}

struct Line {
    MetadataItem item;
    QStringView label;
    QString (*value)(const VXMediaInfoItem &);
};

constexpr std::array lines{
    Line{MetadataItem::FileName, u"File Name", fileName},
    Line{MetadataItem::FileSize, u"File Size", fileSize},
    Line{MetadataItem::Resolution, u"Resolution", resolution},
    Line{MetadataItem::Duration, u"Duration", duration},
    Line{MetadataItem::CreationDate, u"Creation Date", creationDate},
    Line{MetadataItem::FramesPerSecond, u"FPS", framesPerSecond},
    Line{MetadataItem::CodecName, u"Codec Name", codecName},
    Line{MetadataItem::Bitrate, u"Bitrate", bitrate},
};

} // namespace

QString getMetaStrWithObject(const VXMediaInfoItem &movie, std::int32_t bits)
{
    QString text;
    for (const Line &line : lines) {
        if (holds(bits, line.item)) {
            text += line.label + u": " + line.value(movie) + u'\n';
        }
    }
    return text;
}
