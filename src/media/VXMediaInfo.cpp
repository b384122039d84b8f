#include "media/VXMediaInfo.h"

#include "media/FFmpegGenerations.h"
#include "media/MovieInput.h"
#include "media/Upright.h"
#include "platform/files/PathText.h"

extern "C" {
#include <libavutil/pixdesc.h>
}

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

using namespace Qt::StringLiterals;

namespace {

bool hasAudio(const MovieInput &input)
{
    return std::ranges::any_of(
        input.streams(), [](const AVStream *stream) { return stream->codecpar->codec_type == AVMEDIA_TYPE_AUDIO; });
}

VXMediaType kindOf(const MovieInput &input, const AVStream *video)
{
    static constexpr std::array<std::string_view, 5> stillImages = {"image2", "image2pipe", "alias_pix", "brender_pix",
                                                                    "ico"};
    static constexpr std::array<std::string_view, 5> textArt = {"tty", "bin", "xbin", "adf", "idf"};

    const std::string_view format = input.context().iformat->name;
    if (std::ranges::find(textArt, format) != textArt.end()) {
        return VXMediaType::Unknown;
    }
    if (format.ends_with("_pipe") || std::ranges::find(stillImages, format) != stillImages.end()) {
        return VXMediaType::Image;
    }
    if (video) {
        return VXMediaType::Movie;
    }
    return hasAudio(input) ? VXMediaType::Audio : VXMediaType::Unknown;
}

/// The value, or 0 for one that no movie can have.
double sane(double value)
{
    return std::isfinite(value) && value > 0.0 ? value : 0.0;
}

double sane(AVRational value)
{
    return value.den == 0 ? 0.0 : sane(av_q2d(value));
}

double firstSane(std::initializer_list<double> values)
{
    const auto *found = std::ranges::find_if(values, [](double value) { return value > 0.0; });
    return found == values.end() ? 0.0 : *found;
}

/// How much wider than high a pixel of the coded picture is shown. Files may say any number, which would make a tile
/// that is a line; those of real movies are 0.3 to 3.
double sampleAspectOf(const MovieInput &input, AVStream &video)
{
    static constexpr double narrowest = 0.1;
    static constexpr double widest = 10.0;
    const double aspect = sane(av_guess_sample_aspect_ratio(&input.context(), &video, nullptr));
    return aspect >= narrowest && aspect <= widest ? aspect : 1.0;
}

/// Files leave out what they take for granted: the colours that such movies are made in.
std::optional<PictureTraits::HighRange> highRangeOf(const AVCodecParameters &codec)
{
    if (codec.color_trc != AVCOL_TRC_SMPTE2084 && codec.color_trc != AVCOL_TRC_ARIB_STD_B67) {
        return {};
    }
    const bool hasPrimaries =
        av_color_primaries_name(codec.color_primaries) && codec.color_primaries != AVCOL_PRI_UNSPECIFIED;
    const bool hasMatrix = av_color_space_name(codec.color_space) && codec.color_space != AVCOL_SPC_UNSPECIFIED;
    return PictureTraits::HighRange{.transfer = codec.color_trc,
                                    .primaries = hasPrimaries ? codec.color_primaries : AVCOL_PRI_BT2020,
                                    .matrix = hasMatrix ? codec.color_space : AVCOL_SPC_BT2020_NCL};
}

PictureTraits traitsOf(const MovieInput &input, AVStream &video)
{
    const Upright upright = Upright::of(FFmpegGenerations::sideData(video, AV_PKT_DATA_DISPLAYMATRIX));
    const double aspect = sampleAspectOf(input, video);
    const bool keepsLines = upright.degrees == 0.0 && !upright.mirrorsTop;
    return {.sampleAspect = upright.swapsSides() ? 1.0 / aspect : aspect,
            .isOnItsSide = upright.swapsSides(),
            .mayBeInterlaced = keepsLines && video.codecpar->field_order != AV_FIELD_PROGRESSIVE,
            .highRange = highRangeOf(*video.codecpar)};
}

double durationOf(const AVFormatContext &context, const AVStream *video)
{
    double ofContainer = 0.0;
    double ofStream = 0.0;
    if (context.duration != AV_NOPTS_VALUE) {
        ofContainer = sane(static_cast<double>(context.duration) / AV_TIME_BASE);
    }
    if (video && video->duration != AV_NOPTS_VALUE) {
        ofStream = sane(static_cast<double>(video->duration) * sane(video->time_base));
    }
    return firstSane({ofContainer, ofStream});
}

void fillVideoFields(VXMediaInfoItem &item, const MovieInput &input, AVStream &video)
{
    const AVCodecParameters &codec = *video.codecpar;
    item.traits = traitsOf(input, video);
    const bool turned = item.traits.isOnItsSide;
    item.pixWidth = turned ? codec.height : codec.width;
    item.pixHeight = turned ? codec.width : codec.height;
    item.videoFps = firstSane({sane(video.avg_frame_rate), sane(video.r_frame_rate)});
    item.strVideoCodecName = QString::fromUtf8(avcodec_get_name(codec.codec_id));
    item.videoBitrate = firstSane({static_cast<double>(codec.bit_rate), static_cast<double>(input.context().bit_rate),
                                   sane(static_cast<double>(input.fileSize()) * 8.0 / item.duration)});
}

/// Fills the item once all of it is known.
Result<void> probe(VXMediaInfoItem &item, const CancelFlag &cancelled)
{
    MovieInput input(cancelled);
    if (const auto opened = input.open(PathText::toBytes(item.filePath)); !opened) {
        return failure(opened.error());
    }
    AVStream *video = input.chooseVideo();
    const VXMediaType kind = kindOf(input, video);
    if (kind == VXMediaType::Movie && (video->codecpar->width <= 0 || video->codecpar->height <= 0)) {
        return failure(u"has a picture without a size"_s);
    }
    item.eumMediaType = kind;
    item.duration = durationOf(input.context(), video);
    if (video) {
        fillVideoFields(item, input, *video);
    }
    return {};
}

} // namespace

void FFMpegInit()
{
    static const bool prepared = [] {
        av_log_set_level(AV_LOG_QUIET); // what is wrong with a file is told by the probe's error
        return true;
    }();
    static_cast<void>(prepared);
}

void VXMediaInfo::dumpMediaInfo(VXMediaInfoItem &item, std::optional<MediaError> &error, const CancelFlag &cancelled)
{
    FFMpegInit();
    if (const auto probed = probe(item, cancelled); !probed) {
        error = MediaError{probed.error()};
    }
}
