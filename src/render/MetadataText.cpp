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
    // Without line breaks, which would make one name look like two lines of facts.
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

constexpr std::array lines{
    MetadataLine{MetadataItem::TimeStamp, "chkTimestamp", {}, nullptr},
    MetadataLine{MetadataItem::Milliseconds, "chkMilisec", {}, nullptr},
    MetadataLine{MetadataItem::FileName, "chkFilename", u"File Name", fileName},
    MetadataLine{MetadataItem::FileSize, "chkFilesize", u"File Size", fileSize},
    MetadataLine{MetadataItem::Resolution, "chkResolution", u"Resolution", resolution},
    MetadataLine{MetadataItem::Duration, "chkDuration", u"Duration", duration},
    MetadataLine{MetadataItem::CreationDate, "chkDate", u"Creation Date", creationDate},
    MetadataLine{MetadataItem::FramesPerSecond, "chkFPS", u"FPS", framesPerSecond},
    MetadataLine{MetadataItem::CodecName, "chkCodecname", u"Codec Name", codecName},
    MetadataLine{MetadataItem::Bitrate, "chkBitrate", u"Bitrate", bitrate},
};

} // namespace

std::span<const MetadataLine> metadataLines()
{
    return lines;
}

QString getMetaStrWithObject(const VXMediaInfoItem &movie, std::int32_t bits)
{
    QString text;
    for (const MetadataLine &line : lines) {
        if (line.value && holds(bits, line.item)) {
            text += line.label + u": " + line.value(movie) + u'\n';
        }
    }
    return text;
}
