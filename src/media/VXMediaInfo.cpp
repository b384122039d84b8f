#include "media/VXMediaInfo.h"

#include "media/FFmpegGenerations.h"
#include "media/FFmpegHandles.h"
#include "media/RegularFile.h"
#include "platform/files/PathText.h"

extern "C" {
#include <libavutil/display.h>
}

#include <algorithm>
#include <array>
#include <cmath>
#include <span>
#include <string_view>
#include <utility>

using namespace Qt::StringLiterals;

using namespace FFmpegHandles;

namespace {

using OpenFunction = decltype(AVFormatContext::io_open);

/// What FFmpeg's callbacks need while one file is open.
struct ProbeGuard {
    const CancelFlag &cancelled;
    OpenFunction openPlainly = nullptr;
};

int isCancelled(void *flag)
{
    return static_cast<const CancelFlag *>(flag)->load() ? 1 : 0;
}

/// FFmpeg calls this for every file that it opens, also for those that a playlist names. Only regular files are opened.
int openRegularFile(AVFormatContext *context, AVIOContext **file, const char *url, int flags, AVDictionary **options)
{
    static constexpr std::string_view scheme = "file:";
    std::string_view path = url;
    if (path.starts_with(scheme)) {
        path.remove_prefix(scheme.size());
    }
    if (!checkRegularFile(QByteArray(path.data(), static_cast<qsizetype>(path.size())))) {
        return AVERROR(EACCES);
    }
    return static_cast<const ProbeGuard *>(context->opaque)->openPlainly(context, file, url, flags, options);
}

/// The demuxers that may be used: all but those that open further files without openRegularFile().
const QByteArray &allowedDemuxers()
{
    static const QByteArray names = [] {
        static constexpr std::array<std::string_view, 2> openUnseen = {"concat", "vobsub"};
        QByteArray list;
        void *position = nullptr;
        while (const AVInputFormat *format = av_demuxer_iterate(&position)) {
            if (std::ranges::find(openUnseen, format->name) == openUnseen.end()) {
                list.append(list.isEmpty() ? "" : ",").append(format->name);
            }
        }
        return list;
    }();
    return names;
}

QString describe(int code)
{
    switch (code) {
    case AVERROR_INVALIDDATA:
    case AVERROR(EINVAL):
        return u"is not a media file or is damaged"_s;
    case AVERROR_EXIT:
        return u"reading was cancelled"_s;
    default:
        break;
    }
    std::array<char, AV_ERROR_MAX_STRING_SIZE> text = {};
    av_strerror(code, text.data(), text.size());
    return QString::fromUtf8(text.data());
}

/// Opens the container and looks into its streams.
Result<InputContext> openContainer(const QByteArray &path, ProbeGuard &guard)
{
    InputContext context(avformat_alloc_context());
    if (!context) {
        return failure(describe(AVERROR(ENOMEM)));
    }
    guard.openPlainly = std::exchange(context->io_open, &openRegularFile);
    context->opaque = &guard;
    context->interrupt_callback = {&isCancelled, const_cast<CancelFlag *>(&guard.cancelled)};

    Options options;
    options.set("protocol_whitelist", "file");
    options.set("format_whitelist", allowedDemuxers().constData());
    // On failure FFmpeg frees the context itself.
    AVFormatContext *raw = context.release();
    int code = avformat_open_input(&raw, QByteArray("file:" + path).constData(), nullptr, &options.entries);
    context.reset(raw);
    if (code >= 0) {
        code = avformat_find_stream_info(context.get(), nullptr);
    }
    if (guard.cancelled) {
        code = AVERROR_EXIT;
    }
    if (code < 0) {
        return failure(describe(code));
    }
    return context;
}

std::span<AVStream *const> streamsOf(const AVFormatContext &context)
{
    return {context.streams, context.nb_streams};
}

/// The rank of this stream in the ffmpeg tool's choice of one. The collage's frames come from that tool, so the probe
/// must give the size of the stream that it chooses.
std::int64_t rank(const AVStream &stream)
{
    std::int64_t score = std::int64_t{stream.codecpar->width} * stream.codecpar->height;
    if ((stream.event_flags & AVSTREAM_EVENT_FLAG_NEW_PACKETS) != 0) {
        score += 100'000'000;
    }
    if ((stream.disposition & AV_DISPOSITION_DEFAULT) != 0) {
        score += 5'000'000;
    }
    return score;
}

/// The stream that the collage's pictures come from; null when there is none. Cover art is no movie.
const AVStream *chooseVideo(const AVFormatContext &context)
{
    const AVStream *best = nullptr;
    for (const AVStream *stream : streamsOf(context)) {
        if (stream->codecpar->codec_type != AVMEDIA_TYPE_VIDEO ||
            (stream->disposition & AV_DISPOSITION_ATTACHED_PIC) != 0) {
            continue;
        }
        if (!best || rank(*stream) > rank(*best)) {
            best = stream;
        }
    }
    return best;
}

bool hasAudio(const AVFormatContext &context)
{
    return std::ranges::any_of(
        streamsOf(context), [](const AVStream *stream) { return stream->codecpar->codec_type == AVMEDIA_TYPE_AUDIO; });
}

VXMediaType kindOf(const AVFormatContext &context, const AVStream *video)
{
    static constexpr std::array<std::string_view, 5> stillImages = {"image2", "image2pipe", "alias_pix", "brender_pix",
                                                                    "ico"};
    static constexpr std::array<std::string_view, 5> textArt = {"tty", "bin", "xbin", "adf", "idf"};

    const std::string_view format = context.iformat->name;
    if (std::ranges::find(textArt, format) != textArt.end()) {
        return VXMediaType::Unknown;
    }
    if (format.ends_with("_pipe") || std::ranges::find(stillImages, format) != stillImages.end()) {
        return VXMediaType::Image;
    }
    if (video) {
        return VXMediaType::Movie;
    }
    return hasAudio(context) ? VXMediaType::Audio : VXMediaType::Unknown;
}

/// Whether the tool turns the picture by a quarter before it writes it.
bool isTurnedByQuarter(const AVStream &stream)
{
    const auto bytes = FFmpegGenerations::sideData(stream, AV_PKT_DATA_DISPLAYMATRIX);
    std::array<std::int32_t, 9> matrix = {};
    if (bytes.size() < sizeof matrix) {
        return false;
    }
    std::ranges::copy(bytes.first(sizeof matrix), reinterpret_cast<std::uint8_t *>(matrix.data()));
    const double degrees = std::abs(std::round(av_display_rotation_get(matrix.data()))); // 0 to 180, or not a number
    return std::abs(degrees - 90.0) < 1.0;
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

void fillVideoFields(VXMediaInfoItem &item, const AVFormatContext &context, const AVStream &video, std::int64_t size)
{
    const AVCodecParameters &codec = *video.codecpar;
    const bool turned = isTurnedByQuarter(video);
    item.pixWidth = turned ? codec.height : codec.width;
    item.pixHeight = turned ? codec.width : codec.height;
    item.videoFps = firstSane({sane(video.avg_frame_rate), sane(video.r_frame_rate)});
    item.strVideoCodecName = QString::fromUtf8(avcodec_get_name(codec.codec_id));
    item.videoBitrate = firstSane({static_cast<double>(codec.bit_rate), static_cast<double>(context.bit_rate),
                                   sane(static_cast<double>(size) * 8.0 / item.duration)});
}

/// Fills the item once all of it is known.
Result<void> probe(VXMediaInfoItem &item, const CancelFlag &cancelled)
{
    const QByteArray path = PathText::toBytes(item.filePath);
    const auto fileSize = checkRegularFile(path);
    if (!fileSize) {
        return failure(fileSize.error());
    }
    ProbeGuard guard{cancelled};
    const auto opened = openContainer(path, guard);
    if (!opened) {
        return failure(opened.error());
    }
    const AVFormatContext &context = **opened;
    const AVStream *video = chooseVideo(context);
    const VXMediaType kind = kindOf(context, video);
    if (kind == VXMediaType::Movie && (video->codecpar->width <= 0 || video->codecpar->height <= 0)) {
        return failure(u"has a picture without a size"_s);
    }
    item.eumMediaType = kind;
    item.duration = durationOf(context, video);
    if (video) {
        fillVideoFields(item, context, *video, *fileSize);
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
